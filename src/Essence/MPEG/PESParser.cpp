#include "Essence/MPEG/PESParser.h"

#include "DataIO/Chain.h"
#include "DataIO/SliceReader.h"
#include "DataIO/SyncResult.h"
#include "DataIO/SyncWordFinder.h"
#include "Essence/MPEG/PESHeader.h"
#include "Essence/RecordIn.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Platform/BigEndian.h"
#include "Utils/NumberText.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace Vantry { namespace Essence { namespace MPEG {

namespace {

using SlicePtr = Templates::auto_ptr<DataIO::Slice>;

// 00 00 01 and any identifier.
unsigned int const START_CODE = 0x010000;
unsigned int const START_CODE_MASK = 0xFFFFFF;

// Identifiers below are those of pictures and of program streams.
unsigned char const FIRST_STREAM_ID = 0xBC;

unsigned char const PRIVATE_STREAM_1 = 0xBD;
unsigned char const FIRST_SOUND_STREAM = 0xC0;

UInt64 const LONGEST_OPEN_PACKET = 0x1000000000;

// As much of an open packet as is looked through at once.
UInt64 const OPEN_PACKET_STRIDE = 1 << 20;

char const * const NO_START_CODE = "Invalid PES stream. Could not find PES startcode.";

// Padding, program maps and data of a disc's own have their payload at once.
bool hasOptionalHeader(unsigned char streamId) noexcept
{
    return streamId >= FIRST_SOUND_STREAM || streamId == PRIVATE_STREAM_1;
}

}

class PESParser::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Templates::SharedPtr<DataIO::SliceSource> source, UInt64 maximumToSkip, bool keepSkipped) :
        reader_(std::move(source)), maximumToSkip_(maximumToSkip), keepSkipped_(keepSkipped)
    {
    }

    // Finds the stream and reads its first packet, once.
    void setUp()
    {
        if (finder_)
            return;
        findStream();
        readPacket();
    }

    SlicePtr next()
    {
        while (ready_.empty())
            if (!readPacket())
                return SlicePtr(reader_.endOfStream() ? nullptr : new DataIO::Slice);

        SlicePtr slice = ready_.erase(ready_.begin());
        delivered_ += slice->size();
        return slice;
    }

    void giveBack(SlicePtr slice)
    {
        delivered_ -= slice->size();
        ready_.push_front(slice);
    }

    UInt64 delivered() const noexcept { return delivered_; }
    bool hasEnded() const { return ready_.empty() && reader_.endOfStream(); }
    UInt64 pts() const noexcept { return pts_; }

private:
    void findStream()
    {
        DataIO::SyncWordFinder anyStartCode(reader_, START_CODE, START_CODE_MASK);
        for (UInt64 most = maximumToSkip_;;)
        {
            UInt64 const before = reader_.absoluteOffset();
            bool const isFound = anyStartCode.find(most);
            VANTRY_CHECK_TEXT(isFound || !reader_.endOfStream(), "!reader_.endOfStream ()", InvalidFormat,
                              NO_START_CODE);

            if (isFound)
            {
                SlicePtr code = reader_.read(DataIO::SyncWordFinder::SYNC_WORD_SIZE);
                if (code->end()[-1] >= FIRST_STREAM_ID)
                    return takeStream(code);
            }

            UInt64 const passed = reader_.absoluteOffset() - before;
            if (!isFound || passed > most)
                failSkippedTooMuch();
            most -= passed;
        }
    }

    // The stream of the packet whose start code comes next.
    void takeStream(SlicePtr code)
    {
        unsigned char const streamId = code->end()[-1];
        hasOptionalHeader_ = hasOptionalHeader(streamId);
        reader_.unget(code);
        finder_.emplace(reader_, START_CODE | static_cast<unsigned int>(streamId) << 24, ~0U);
    }

    [[noreturn]] void failSkippedTooMuch() const
    {
        VANTRY_FAIL(InvalidFormat, "Skipped too many bytes to search for the PES header. PES position: 0x" +
                                       Utils::hexadecimal(reader_.absoluteOffset()) + " - Configured maximum to skip " +
                                       std::to_string(maximumToSkip_).c_str());
    }

    // Reads a packet, or what comes next of one that was begun. False where
    // there is none.
    bool readPacket()
    {
        if (openLeft_ == 0 && payloadLeft_ == 0 && !enterPacket())
            return false;

        if (openLeft_ != 0)
            readOpenPayload();
        else
            readPayload();
        return true;
    }

    bool enterPacket()
    {
        DataIO::SyncResult passed;
        if (!findPacket(passed))
            return false;

        SlicePtr const start = reader_.read(sizeof(header_PACKET));
        if (start->size() < sizeof(header_PACKET))
            return false;

        auto const packet = recordIn<header_PACKET>(*start);
        UInt64 headerSize = 0;
        if (hasOptionalHeader_)
        {
            pts_ = 0;
            headerSize = readHeader(reader_, &packet, pts_);
        }

        UInt64 const length = Platform::readBigEndian<unsigned short>(packet.packetLength);
        if (length == 0)
            openLeft_ = LONGEST_OPEN_PACKET;
        else
        {
            payloadLeft_ = length - headerSize;
            ready_.push_back(passed.skipped);
        }
        return true;
    }

    bool findPacket(DataIO::SyncResult & passed)
    {
        if (keepSkipped_ ? finder_->find(maximumToSkip_, passed) : finder_->find(maximumToSkip_))
            return true;

        // Whoever tries again is to get further.
        if (maximumToSkip_ == 0)
            reader_.skip(1);
        return false;
    }

    void readPayload()
    {
        while (payloadLeft_ != 0 && !reader_.endOfStream())
        {
            SlicePtr piece = reader_.nextSlice(payloadLeft_);
            payloadLeft_ -= piece->size();
            ready_.push_back(piece);
        }
        payloadLeft_ = 0;
    }

    // A piece of a packet that the next one ends, or the stream.
    void readOpenPayload()
    {
        DataIO::SyncResult piece;
        bool const isFound = finder_->find(std::min(openLeft_, OPEN_PACKET_STRIDE), piece);
        openLeft_ -= piece.skipped.data_size();
        ready_.push_back(piece.skipped);
        if (isFound || reader_.endOfStream())
        {
            openLeft_ = 0;
            return;
        }
        if (openLeft_ != 0)
            return;

        DataIO::Chain endcode;
        reader_.read(DataIO::SyncWordFinder::SYNC_WORD_SIZE, endcode);
        VANTRY_CHECK(endcode.data_size () < 4, InvalidFormat, NO_START_CODE);
        ready_.push_back(endcode);
    }

    DataIO::SliceReader reader_;
    UInt64 const maximumToSkip_;
    bool const keepSkipped_;

    // Finds the packets of the stream, once that is known.
    std::optional<DataIO::SyncWordFinder> finder_;
    bool hasOptionalHeader_ = false;

    DataIO::Chain ready_;
    UInt64 delivered_ = 0;
    UInt64 pts_ = 0;

    // What is yet to be read of the packet: bytes of the payload, or how many
    // an open one may still have.
    UInt64 payloadLeft_ = 0;
    UInt64 openLeft_ = 0;
};

PESParser::PESParser(Templates::SharedPtr<DataIO::SliceSource> source, UInt64 maximumToSkip, bool keepSkipped) :
    impl_(new Impl(std::move(source), maximumToSkip, keepSkipped))
{
}

PESParser::~PESParser()
{
    delete impl_;
}

SlicePtr PESParser::read(UInt64)
{
    impl_->setUp();
    return impl_->next();
}

UInt64 PESParser::absoluteOffset() const
{
    impl_->setUp();
    return impl_->delivered();
}

bool PESParser::endOfStream() const
{
    impl_->setUp();
    return impl_->hasEnded();
}

UInt64 PESParser::skip(UInt64 howMuch)
{
    impl_->setUp();

    UInt64 skipped = 0;
    while (skipped < howMuch)
    {
        SlicePtr slice = impl_->next();
        if (slice.get() == nullptr || slice->size() == 0)
            break;
        UInt64 const rest = howMuch - skipped;
        if (slice->size() > rest)
            impl_->giveBack(slice->splice(slice->begin() + rest));
        skipped += slice->size();
    }
    return skipped;
}

UInt64 PESParser::pts() const
{
    impl_->setUp();
    return impl_->pts();
}

}}}
