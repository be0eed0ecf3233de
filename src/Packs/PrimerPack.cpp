#include "Packs/PrimerPack.h"

#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidKey.h"
#include "KLV/Packet.h"
#include "KLV/PacketHead.h"
#include "Types/UInt32.h"

#include <iterator>

namespace Vantry { namespace Packs {

namespace {

unsigned char const DEFAULT_BER_LENGTH = 4;
unsigned int const HEAD_SIZE = 8;
unsigned int const ENTRY_SIZE = 18;

UInt64 valueLength(unsigned int count)
{
    return HEAD_SIZE + UInt64(count) * ENTRY_SIZE;
}

template <class Entries>
PrimerPack::Entry entryAt(Entries const & entries, unsigned int place)
{
    if (place >= entries.size())
        VANTRY_FAIL(IndexOutOfBounds, "Trying to access an element beyond the end of the data");
    return *std::next(entries.begin(), place);
}

}

KLV::Key const & PrimerPack::key()
{
    static constexpr unsigned char BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x05, 0x01, 0x01,
                                              0x0D, 0x01, 0x02, 0x01, 0x01, 0x05, 0x01, 0x00};
    static constexpr KLV::Key KEY(BYTES);
    return KEY;
}

class PrimerPack::Record
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Record(unsigned char berSize) : berLength(berSize) {}

    void add(Types::LocalTag const & tag, Types::UniversalLabel const & label)
    {
        bool const isNew = labels.emplace(tag, label).second && tags.emplace(label, tag).second;
        if (!isNew)
            duplicates.emplace_back(tag, label);
    }

    Templates::vector<Entry> duplicates;
    Templates::map<Types::LocalTag, Types::UniversalLabel> labels;
    Templates::map<Types::UniversalLabel, Types::LocalTag> tags;
    unsigned char berLength;
};

PrimerPack::PrimerPack() : record_(new Record(DEFAULT_BER_LENGTH)) {}

PrimerPack::PrimerPack(KLV::Packet & packet) : record_(nullptr)
{
    if (!isPrimerPack(packet.key()))
        VANTRY_FAIL(InvalidKey, "Trying to create a Primer from a KLV with a invalid primerPack Key.");

    Templates::auto_ptr<Record> record(new Record(packet.berLength()));
    KLV::Value & value = packet.value();
    Types::UInt32 const count(value);
    Types::UInt32 const entrySize(value); // real files are read right without it
    for (unsigned int i = 0; i < count.value(); ++i)
    {
        Types::LocalTag const tag(value);
        Types::UniversalLabel const label(value);
        record->add(tag, label);
    }
    record_ = record.release();
}

PrimerPack::PrimerPack(PrimerPack const & other) : record_(new Record(*other.record_)) {}

PrimerPack::~PrimerPack()
{
    delete record_;
}

PrimerPack PrimerPack::operator=(PrimerPack const & other) const
{
    *record_ = Record(*other.record_);
    return *this;
}

void PrimerPack::add(Types::LocalTag const & tag, Types::UniversalLabel const & label)
{
    record_->add(tag, label);
}

bool PrimerPack::remove(Types::UniversalLabel const & label)
{
    auto const found = record_->tags.find(label);
    if (found == record_->tags.end())
        return false;

    record_->labels.erase(found->second);
    record_->tags.erase(found);
    return true;
}

Types::UniversalLabel const * PrimerPack::find(Types::LocalTag const & tag) const
{
    auto const found = record_->labels.find(tag);
    return found == record_->labels.end() ? nullptr : &found->second;
}

Types::LocalTag const * PrimerPack::find(Types::UniversalLabel const & label) const
{
    auto const found = record_->tags.find(label);
    return found == record_->tags.end() ? nullptr : &found->second;
}

unsigned int PrimerPack::count() const
{
    return static_cast<unsigned int>(record_->labels.size());
}

unsigned int PrimerPack::countDuplicates() const
{
    return static_cast<unsigned int>(record_->duplicates.size());
}

PrimerPack::Entry PrimerPack::at(unsigned int place) const
{
    return entryAt(record_->labels, place);
}

PrimerPack::Entry PrimerPack::atDuplicates(unsigned int place) const
{
    return entryAt(record_->duplicates, place);
}

unsigned char PrimerPack::berLength() const
{
    return record_->berLength;
}

void PrimerPack::berLength(unsigned char berLength)
{
    record_->berLength = berLength;
}

UInt64 PrimerPack::serializedSize() const
{
    return key().serializedSize() + record_->berLength + valueLength(count());
}

void PrimerPack::serialize(DataIO::DataSink & sink) const
{
    KLV::writePacketHead(sink, key(), valueLength(count()), record_->berLength);
    Types::UInt32(count()).serialize(sink);
    Types::UInt32(ENTRY_SIZE).serialize(sink);
    for (auto const & entry : record_->labels)
    {
        entry.first.serialize(sink);
        entry.second.serialize(sink);
    }
}

bool isPrimerPack(KLV::Key const & key)
{
    return key == PrimerPack::key();
}

}}
