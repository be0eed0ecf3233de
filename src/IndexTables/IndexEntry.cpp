#include "IndexTables/IndexEntry.h"

#include "DataIO/DataSink.h"
#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "KLV/Value.h"
#include "Platform/BigEndian.h"
#include "Types/Rational.h"

#include <cstring>
#include <iterator>
#include <utility>

namespace Vantry { namespace IndexTables {

namespace {

unsigned int const KEY_FRAME_OFFSET = 1;
unsigned int const FLAGS = 2;
unsigned int const STREAM_OFFSET = 3;

// The size of an entry is told in 16 bits.
unsigned int const LARGEST_SIZE = 0xFFFF;

char const * const BEYOND_END = "Trying to access a element beyond the end of data";

Templates::vector<unsigned char> read(KLV::Value & value, unsigned int size)
{
    Templates::vector<unsigned char> bytes(size);
    value.readValue(bytes.data(), size);
    return bytes;
}

}

IndexEntry::IndexEntry(signed char temporalOffset, signed char keyFrameOffset, bool randomAccess, bool sequenceHeader,
                       bool forwardPrediction, bool backwardPrediction, UInt64 streamOffset) noexcept :
    IndexEntry(streamOffset)
{
    temporalOffset_ = temporalOffset;
    keyFrameOffset_ = keyFrameOffset;
    flag(RANDOM_ACCESS, randomAccess);
    flag(SEQUENCE_HEADER, sequenceHeader);
    flag(FORWARD_PREDICTION, forwardPrediction);
    flag(BACKWARD_PREDICTION, backwardPrediction);
}

IndexEntry::IndexEntry(KLV::Value & value, unsigned char sliceCount, unsigned char posTableCount) :
    IndexEntry(read(value, sizeOf(sliceCount, posTableCount)).data(), sliceCount, posTableCount)
{
}

IndexEntry::IndexEntry(unsigned char const * bytes, unsigned char sliceCount, unsigned char posTableCount) :
    streamOffset_(Platform::readBigEndian<UInt64>(bytes + STREAM_OFFSET)),
    sliceCount_(sliceCount),
    posTableCount_(posTableCount),
    temporalOffset_(static_cast<signed char>(bytes[0])),
    keyFrameOffset_(static_cast<signed char>(bytes[KEY_FRAME_OFFSET])),
    flags_(bytes[FLAGS])
{
    makeTail(bytes + FIXED_SIZE);
}

IndexEntry::IndexEntry(IndexEntry const & other, unsigned int sliceCount, unsigned int posTableCount,
                       unsigned char const * tail) :
    IndexTableSegmentEntry(other),
    streamOffset_(other.streamOffset_),
    sliceCount_(static_cast<unsigned short>(sliceCount)),
    posTableCount_(static_cast<unsigned short>(posTableCount)),
    temporalOffset_(other.temporalOffset_),
    keyFrameOffset_(other.keyFrameOffset_),
    flags_(other.flags_)
{
    makeTail(tail);
}

IndexEntry::IndexEntry(IndexEntry const & other) :
    IndexEntry(other, other.sliceCount_, other.posTableCount_, other.tail())
{
}

IndexEntry & IndexEntry::operator=(IndexEntry const & other)
{
    return *this = IndexEntry(other);
}

IndexEntry & IndexEntry::operator=(IndexEntry && other) noexcept
{
    if (this == &other)
        return *this;

    dropTail();
    streamOffset_ = other.streamOffset_;
    temporalOffset_ = other.temporalOffset_;
    keyFrameOffset_ = other.keyFrameOffset_;
    flags_ = other.flags_;
    takeTail(other);
    return *this;
}

unsigned int IndexEntry::sliceOffset(unsigned int index) const
{
    if (index >= sliceCount_)
        VANTRY_FAIL(IndexOutOfBounds, "Trying to access a element beyond the end of data.");
    return Platform::readBigEndian<UInt32>(tail() + SLICE_SIZE * index);
}

void IndexEntry::addSliceOffset(unsigned char index, unsigned int sliceOffset)
{
    checkAdding(index, sliceCount_, SLICE_SIZE);

    unsigned char bytes[SLICE_SIZE];
    Platform::writeBigEndian<UInt32>(sliceOffset, bytes);
    Tail changed = copyOfTail();
    changed.insert(changed.begin() + SLICE_SIZE * index, std::begin(bytes), std::end(bytes));
    *this = IndexEntry(*this, sliceCount_ + 1u, posTableCount_, changed.data());
}

void IndexEntry::removeSliceOffset(unsigned char index)
{
    if (index >= sliceCount_)
        VANTRY_FAIL(IndexOutOfBounds, BEYOND_END);

    Tail changed = copyOfTail();
    Tail::iterator const place = changed.begin() + SLICE_SIZE * index;
    changed.erase(place, place + SLICE_SIZE);
    *this = IndexEntry(*this, sliceCount_ - 1u, posTableCount_, changed.data());
}

Templates::Rational<int> IndexEntry::posTable(unsigned int index) const
{
    if (index >= posTableCount_)
        VANTRY_FAIL(IndexOutOfBounds, BEYOND_END);

    unsigned char const * const bytes = tail() + SLICE_SIZE * sliceCount_ + POSITION_SIZE * index;
    return Types::Rational(Platform::readBigEndian<Int32>(bytes), Platform::readBigEndian<Int32>(bytes + 4)).value();
}

void IndexEntry::addPosTable(unsigned char index, Templates::Rational<int> const & position)
{
    checkAdding(index, posTableCount_, POSITION_SIZE);

    Types::Rational const value(position.numerator(), position.denominator());
    Tail changed = copyOfTail();
    changed.insert(changed.begin() + SLICE_SIZE * sliceCount_ + POSITION_SIZE * index, value.rawBuffer(),
                   value.rawBuffer() + POSITION_SIZE);
    *this = IndexEntry(*this, sliceCount_, posTableCount_ + 1u, changed.data());
}

void IndexEntry::removePosTable(unsigned char index)
{
    if (index >= posTableCount_)
        VANTRY_FAIL(IndexOutOfBounds, BEYOND_END);

    Tail changed = copyOfTail();
    Tail::iterator const place = changed.begin() + SLICE_SIZE * sliceCount_ + POSITION_SIZE * index;
    changed.erase(place, place + POSITION_SIZE);
    *this = IndexEntry(*this, sliceCount_, posTableCount_ - 1u, changed.data());
}

void IndexEntry::write(unsigned char * bytes) const noexcept
{
    bytes[0] = static_cast<unsigned char>(temporalOffset_);
    bytes[KEY_FRAME_OFFSET] = static_cast<unsigned char>(keyFrameOffset_);
    bytes[FLAGS] = flags_;
    Platform::writeBigEndian<UInt64>(streamOffset_, bytes + STREAM_OFFSET);
    std::memcpy(bytes + FIXED_SIZE, tail(), tailSize());
}

void IndexEntry::serialize(DataIO::DataSink & sink) const
{
    Tail bytes(serializedSize());
    write(bytes.data());
    sink.write(bytes.data(), bytes.size());
}

unsigned short IndexEntry::serializedSize() const
{
    return static_cast<unsigned short>(sizeOf(sliceCount_, posTableCount_));
}

void IndexEntry::checkAdding(unsigned int index, unsigned int count, unsigned int size) const
{
    if (index > count || serializedSize() + size > LARGEST_SIZE)
        VANTRY_FAIL(IndexOutOfBounds, BEYOND_END);
}

IndexEntry::Tail IndexEntry::copyOfTail() const
{
    return Tail(tail(), tail() + tailSize());
}

void IndexEntry::makeTail(unsigned char const * bytes)
{
    if (!isTailInside())
        outside_ = static_cast<unsigned char *>(Platform::allocateOrThrow(tailSize()));

    // Piece by piece is faster for the few that there mostly are.
    unsigned char * const tail = isTailInside() ? inside_ : outside_;
    for (unsigned int i = 0; i < tailSize(); i += SLICE_SIZE)
        std::memcpy(tail + i, bytes + i, SLICE_SIZE);
}

void IndexEntry::takeTail(IndexEntry & other) noexcept
{
    std::memcpy(inside_, other.inside_, INSIDE_SIZE);
    sliceCount_ = other.sliceCount_;
    posTableCount_ = other.posTableCount_;
    other.sliceCount_ = other.posTableCount_ = 0;
}

void IndexEntry::freeTail() noexcept
{
    Platform::malloc_alloc::deallocate(outside_, tailSize());
}

}}
