#include "IndexTables/IndexTableSegment.h"

#include "DataIO/DataSink.h"
#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidElement.h"
#include "Exceptions/InvalidIndexSegment.h"
#include "Exceptions/InvalidLength.h"
#include "IndexTables/DeltaEntryArray.h"
#include "IndexTables/IndexEntryArray.h"
#include "IndexTables/IndexTableLocalTag.h"
#include "IndexTables/IndexTableSegmentListener.h"
#include "KLV/Packet.h"
#include "KLV/PacketHead.h"
#include "Platform/BigEndian.h"
#include "Templates/SafeCast.h"
#include "Templates/auto_ptr.h"
#include "Types/Factories/UID.h"
#include "Types/ReadAvailable.h"
#include "Types/UInt16.h"

#include <optional>
#include <string>

namespace Vantry { namespace IndexTables {

namespace {

using Bytes = Templates::vector<unsigned char>;
using Tag = IndexTableLocalTag;

unsigned int const TAG_SIZE = 2;
unsigned int const ELEMENT_HEAD_SIZE = 4;

int const CODING_BYTE = 5;
int const EDITION_BYTE = 14;

// Whether this is the key of a segment of either edition, however its elements
// are coded.
bool isSegmentKey(KLV::Key key)
{
    KLV::Key const & wanted = IndexTableSegment::key();
    key[CODING_BYTE] = wanted[CODING_BYTE];
    if (key[EDITION_BYTE] == 0)
        key[EDITION_BYTE] = wanted[EDITION_BYTE];
    return key == wanted;
}

void checkKey(KLV::Key const & key)
{
    if (!isSegmentKey(key))
        VANTRY_FAIL(InvalidIndexSegment, "Trying to load a Index Segment with an invalid key");
    if (key.localTagFieldLength() != 2 || key.lengthFieldLength() != 2)
        VANTRY_FAIL(InvalidIndexSegment,
                    "Invalid MXF Index Segment set (local tag should be 2 bytes and length field 2 bytes.)");
}

[[noreturn]] void failLength(Bytes const & read, char const * text)
{
    throw Exceptions::InvalidLength(read.data(), read.size(), text, __FILE__, __LINE__);
}

// What elements are held in: a value, one that may be absent, or an array.

template <class T>
T const * held(T const & value)
{
    return &value;
}

template <class T>
T const * held(std::optional<T> const & value)
{
    return value ? &*value : nullptr;
}

template <class T>
T const * held(Templates::auto_ptr<T> const & array)
{
    return array.get();
}

template <class T>
unsigned int countOf(Templates::auto_ptr<T> const & array)
{
    return array ? array->size() : 0;
}

unsigned char countOf(std::optional<Types::UInt8> const & count)
{
    return count ? count->value() : 0;
}

}

class IndexTableSegment::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Impl(unsigned char lengthSize) :
        berLength(lengthSize),
        instanceID(Types::Factories::UID::generateUUID(Types::Factories::UID::TIME_SNAP_VERSION_1))
    {
    }

    // Calls `action` with tag and holder of each element, in the order in
    // which they are written.
    template <class Self, class Action>
    static void forEachElement(Self & self, Action && action)
    {
        action(Tag::instanceID(), self.instanceID);
        action(Tag::indexEditRate(), self.indexEditRate);
        action(Tag::indexStartPosition(), self.indexStartPosition);
        action(Tag::indexDuration(), self.indexDuration);
        action(Tag::editUnitByteCount(), self.editUnitByteCount);
        action(Tag::indexSID(), self.indexSID);
        action(Tag::bodySID(), self.bodySID);
        action(Tag::sliceCount(), self.sliceCount);
        action(Tag::posTableCount(), self.posTableCount);
        action(Tag::deltaEntryArray(), self.deltaEntries);
        action(Tag::indexEntryArray(), self.indexEntries);
    }

    void load(KLV::Value & value)
    {
        while (value.remaining() != 0)
            loadElement(value);
    }

    UInt64 contentSize() const
    {
        UInt64 size = 0;
        forEachElement(*this,
                       [&](Types::LocalTag const &, auto const & holder)
                       {
                           if (auto const * element = held(holder))
                               size += ELEMENT_HEAD_SIZE + element->serializedSize();
                       });
        return size;
    }

    void serialize(DataIO::DataSink & sink) const
    {
        forEachElement(*this,
                       [&](Types::LocalTag const & tag, auto const & holder)
                       {
                           if (auto const * element = held(holder))
                           {
                               tag.serialize(sink);
                               Types::UInt16(static_cast<UInt16>(element->serializedSize())).serialize(sink);
                               element->serialize(sink);
                           }
                       });
    }

    unsigned char berLength;
    IndexTableSegmentListener * listener = nullptr;

    Types::UUID instanceID;
    Types::Rational indexEditRate = {0, 1};
    Types::Position indexStartPosition = 0;
    Types::Length indexDuration = 0;
    std::optional<Types::UInt32> editUnitByteCount;
    std::optional<Types::UInt32> indexSID;
    Types::UInt32 bodySID = 0;
    std::optional<Types::UInt8> sliceCount;
    std::optional<Types::UInt8> posTableCount;
    Templates::auto_ptr<DeltaEntryArray> deltaEntries;
    Templates::auto_ptr<IndexEntryArray> indexEntries;
    Templates::vector<UnknownElement> unknownElements;

private:
    void loadElement(KLV::Value & value)
    {
        Bytes head(ELEMENT_HEAD_SIZE);
        head.resize(Types::readAvailable(value, head.data(), ELEMENT_HEAD_SIZE));
        if (head.size() < ELEMENT_HEAD_SIZE)
            failLength(head, "Invalid data size in Value in the IndexTable Segment");

        Types::LocalTag const tag(head.data());
        KLV::Value content(value, Platform::readBigEndian<UInt16>(head.data() + TAG_SIZE));
        if (listener)
            listener->elementMet(tag, content);
        loadContent(tag, content, head);
        checkNothingLeft(content);
    }

    void loadContent(Types::LocalTag const & tag, KLV::Value & content, Bytes const & head)
    {
        if (tag == Tag::deltaEntryArray())
            deltaEntries.reset(new DeltaEntryArray(content));
        else if (tag == Tag::indexEntryArray())
            indexEntries.reset(new IndexEntryArray(content, countOf(sliceCount), countOf(posTableCount)));
        else
            loadValue(tag, content, head);
    }

    void loadValue(Types::LocalTag const & tag, KLV::Value & content, Bytes const & head)
    {
        try
        {
            if (!loadKnown(tag, content))
                unknownElements.push_back({tag, Templates::SharedPtr<Types::Unknown>(new Types::Unknown(content))});
        }
        catch (Exceptions::InvalidLength const & failure)
        {
            Bytes read = head;
            read.insert(read.end(), failure.readData(), failure.readData() + failure.readDataLength());
            failLength(read, "Invalid data size in Value in the IndexTable Segment");
        }
    }

    // Reads a value whose tag is known; tells whether it is.
    bool loadKnown(Types::LocalTag const & tag, KLV::Value & content)
    {
        bool known = false;
        forEachElement(*this,
                       [&](Types::LocalTag const & elementTag, auto & holder)
                       {
                           if (tag == elementTag)
                           {
                               read(holder, content);
                               known = true;
                           }
                       });
        return known;
    }

    template <class T>
    static void read(T & holder, KLV::Value & content)
    {
        holder = T(content);
    }

    template <class T>
    static void read(std::optional<T> & holder, KLV::Value & content)
    {
        holder = T(content);
    }

    // Arrays are read by themselves.
    template <class T>
    static void read(Templates::auto_ptr<T> &, KLV::Value &)
    {
    }

    static void checkNothingLeft(KLV::Value & content)
    {
        if (content.remaining() == 0)
            return;
        Bytes rest;
        Types::appendAvailable(content, rest);
        failLength(rest, "Invalid data size in Local Value. Value still contains data to be read.");
    }
};

KLV::Key const & IndexTableSegment::key()
{
    static constexpr unsigned char BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x53, 0x01, 0x01,
                                              0x0D, 0x01, 0x02, 0x01, 0x01, 0x10, 0x01, 0x00};
    static constexpr KLV::Key KEY(BYTES);
    return KEY;
}

IndexTableSegment::IndexTableSegment(unsigned char berLength) : impl_(new Impl(berLength)) {}

IndexTableSegment::IndexTableSegment(KLV::Packet & packet, IndexTableSegmentListener * listener) : impl_(nullptr)
{
    checkKey(packet.key());
    Templates::auto_ptr<Impl> impl(new Impl(packet.berLength()));
    impl->listener = listener;
    impl->load(packet.value());
    impl_ = impl.release();
}

IndexTableSegment::~IndexTableSegment()
{
    delete impl_;
}

UInt64 IndexTableSegment::serializedSize() const
{
    return key().serializedSize() + impl_->berLength + impl_->contentSize();
}

void IndexTableSegment::serialize(DataIO::DataSink & sink) const
{
    UInt32 const size = Templates::SafeCast<UInt32, Exceptions::InvalidIndexSegment>(impl_->contentSize());
    KLV::writePacketHead(sink, key(), size, impl_->berLength);
    impl_->serialize(sink);
}

unsigned char IndexTableSegment::berLength() const
{
    return impl_->berLength;
}

void IndexTableSegment::listener(IndexTableSegmentListener * listener)
{
    impl_->listener = listener;
}

Types::UUID const & IndexTableSegment::instanceUID() const
{
    return impl_->instanceID;
}

Types::Rational const & IndexTableSegment::indexEditRate() const
{
    return impl_->indexEditRate;
}

void IndexTableSegment::indexEditRate(Types::Rational const & indexEditRate)
{
    impl_->indexEditRate = indexEditRate;
}

Types::Position const & IndexTableSegment::indexStartPosition() const
{
    return impl_->indexStartPosition;
}

void IndexTableSegment::indexStartPosition(Types::Position const & indexStartPosition)
{
    impl_->indexStartPosition = indexStartPosition;
}

Types::Length const & IndexTableSegment::indexDuration() const
{
    return impl_->indexDuration;
}

void IndexTableSegment::indexDuration(Types::Length const & indexDuration)
{
    impl_->indexDuration = indexDuration;
}

Types::UInt32 const * IndexTableSegment::editUnitByteCount() const
{
    return held(impl_->editUnitByteCount);
}

void IndexTableSegment::editUnitByteCount(Types::UInt32 const & editUnitByteCount)
{
    impl_->editUnitByteCount = editUnitByteCount;
}

void IndexTableSegment::resetEditUnitByteCount()
{
    impl_->editUnitByteCount.reset();
}

Types::UInt32 const * IndexTableSegment::indexSID() const
{
    return held(impl_->indexSID);
}

void IndexTableSegment::indexSID(Types::UInt32 const & indexSID)
{
    impl_->indexSID = indexSID;
}

void IndexTableSegment::resetIndexSID()
{
    impl_->indexSID.reset();
}

Types::UInt32 const & IndexTableSegment::bodySID() const
{
    return impl_->bodySID;
}

void IndexTableSegment::bodySID(Types::UInt32 const & bodySID)
{
    impl_->bodySID = bodySID;
}

Types::UInt8 const * IndexTableSegment::sliceCount() const
{
    return held(impl_->sliceCount);
}

void IndexTableSegment::sliceCount(Types::UInt8 const & sliceCount)
{
    if (impl_->indexEntries)
        VANTRY_FAIL(InvalidIndexSegment, "IndexEntryArray still contains value. Please empty IndexEntryArray before "
                                         "setting sliceCount");
    impl_->sliceCount = sliceCount;
}

Types::UInt8 const * IndexTableSegment::posTableCount() const
{
    return held(impl_->posTableCount);
}

void IndexTableSegment::posTableCount(Types::UInt8 const & posTableCount)
{
    if (impl_->indexEntries)
        VANTRY_FAIL(InvalidIndexSegment, "IndexEntryArray still contains value. Please empty IndexEntryArray before "
                                         "setting posTableCount");
    impl_->posTableCount = posTableCount;
}

DeltaEntryArray * IndexTableSegment::deltaEntryArray()
{
    return impl_->deltaEntries.get();
}

DeltaEntryArray const * IndexTableSegment::deltaEntryArray() const
{
    return impl_->deltaEntries.get();
}

unsigned int IndexTableSegment::deltaEntryCount() const
{
    return countOf(impl_->deltaEntries);
}

DeltaEntry & IndexTableSegment::deltaEntry(unsigned int index)
{
    if (index >= deltaEntryCount())
        VANTRY_FAIL(IndexOutOfBounds, "IndexTableSegment::deltaEntry IndexOutOfBounds");
    return impl_->deltaEntries->at(index);
}

DeltaEntry const & IndexTableSegment::deltaEntry(unsigned int index) const
{
    return const_cast<IndexTableSegment &>(*this).deltaEntry(index);
}

void IndexTableSegment::addDeltaEntry(unsigned int index, DeltaEntry const & entry)
{
    if (impl_->deltaEntries)
        return impl_->deltaEntries->insertAt(index, entry);

    Templates::auto_ptr<DeltaEntryArray> array(new DeltaEntryArray);
    array->insertAt(index, entry);
    impl_->deltaEntries = array;
}

void IndexTableSegment::removeDeltaEntry(unsigned int index)
{
    if (!impl_->deltaEntries)
        VANTRY_FAIL(IndexOutOfBounds, "Trying to remove element from empty deltaEntryArray.");
    impl_->deltaEntries->remove(index);
}

void IndexTableSegment::resetDeltaEntryArray()
{
    impl_->deltaEntries.reset();
}

IndexEntryArray * IndexTableSegment::indexEntryArray()
{
    return impl_->indexEntries.get();
}

IndexEntryArray const * IndexTableSegment::indexEntryArray() const
{
    return impl_->indexEntries.get();
}

unsigned int IndexTableSegment::indexEntryCount() const
{
    return countOf(impl_->indexEntries);
}

IndexEntry & IndexTableSegment::indexEntry(unsigned int index)
{
    if (index >= indexEntryCount())
        VANTRY_FAIL(IndexOutOfBounds, "IndexTableSegment::indexEntry IndexOutOfBounds");
    return impl_->indexEntries->at(index);
}

IndexEntry const & IndexTableSegment::indexEntry(unsigned int index) const
{
    return const_cast<IndexTableSegment &>(*this).indexEntry(index);
}

void IndexTableSegment::addIndexEntry(unsigned int index, IndexEntry const & entry)
{
    if (impl_->indexEntries)
        return impl_->indexEntries->insertAt(index, entry);

    unsigned char const slices = countOf(impl_->sliceCount);
    unsigned char const positions = countOf(impl_->posTableCount);
    if (entry.sliceOffsetCount() != slices || entry.posTableCount() != positions)
        VANTRY_FAIL(InvalidElement,
                    Templates::string("Error: NSL in segment has value: ") + std::to_string(slices).c_str() +
                        " while IndexEntry has NSL: " + std::to_string(entry.sliceOffsetCount()).c_str() +
                        "\nError: NPE in segment has value: " + std::to_string(positions).c_str() +
                        " while IndexEntry has NPE: " + std::to_string(entry.posTableCount()).c_str());

    Templates::auto_ptr<IndexEntryArray> array(new IndexEntryArray(slices, positions));
    array->insertAt(index, entry);
    impl_->indexEntries = array;
}

void IndexTableSegment::removeIndexEntry(unsigned int index)
{
    if (!impl_->indexEntries)
        VANTRY_FAIL(IndexOutOfBounds, "Trying to remove element from empty indexEntryArray.");
    impl_->indexEntries->remove(index);
}

void IndexTableSegment::resetIndexEntryArray()
{
    impl_->indexEntries.reset();
}

Templates::vector<IndexTableSegment::UnknownElement> const & IndexTableSegment::unknownElements() const
{
    return impl_->unknownElements;
}

}}
