#include "Metadata/Listeners/ValueIndex.h"

#include "Platform/KeyedHash.h"
#include "Types/SimpleDataType.h"
#include "Types/UniversalLabel.h"

#include <algorithm>
#include <cstring>

namespace Vantry { namespace Metadata { namespace Listeners {

namespace {

std::size_t const FIRST_CHAINS = 16;

}

IndexedValue::IndexedValue(Types::UniversalLabel const & label, Types::SimpleDataType const & value) :
    label_(&label), bytes_(value.rawBuffer()), hash_(0), size_(value.serializedSize())
{
    std::copy_n(bytes_, std::min(size_, HEAD_SIZE), head_);
    hash_ = static_cast<UInt32>(
        Platform::KeyedHash().add(label.rawBuffer(), label.serializedSize()).add(bytes_, size_).finish());
}

bool IndexedValue::operator==(IndexedValue const & other) const
{
    return hash_ == other.hash_ && size_ == other.size_ && std::memcmp(head_, other.head_, HEAD_SIZE) == 0 &&
           (label_ == other.label_ || *label_ == *other.label_) &&
           (size_ <= HEAD_SIZE || std::memcmp(bytes_ + HEAD_SIZE, other.bytes_ + HEAD_SIZE, size_ - HEAD_SIZE) == 0);
}

void ValueIndex::insert(IndexedValue const & value, MetadataSet & set)
{
    enter(value, set);
}

void ValueIndex::remove(IndexedValue const & value, MetadataSet & set)
{
    removeAllBut(END, value, set);
}

// The new value comes first: when there is no memory for it, the old one is
// still there.
void ValueIndex::replace(IndexedValue const & oldValue, IndexedValue const & newValue, MetadataSet & set)
{
    removeAllBut(enter(newValue, set), oldValue, set);
}

Templates::vector<MetadataSet *> ValueIndex::find(IndexedValue const & value) const
{
    Templates::vector<MetadataSet *> sets;
    if (count_ == 0)
        return sets;
    for (Place place = ofValue_[value.hash() & (ofValue_.size() - 1)]; place != END;
         place = entries_[place].olderOfValue)
        if (entries_[place].value == value)
            sets.push_back(entries_[place].set);
    std::reverse(sets.begin(), sets.end());
    return sets;
}

ValueIndex::Place ValueIndex::enter(IndexedValue const & value, MetadataSet & set)
{
    if (2 * count_ >= ofValue_.size())
        makeRoom();
    Place const place = takePlace(value, set);
    chain(place);
    ++count_;
    return place;
}

ValueIndex::Place ValueIndex::takePlace(IndexedValue const & value, MetadataSet & set)
{
    Entry const entry = {value, &set, END, END, END};
    if (free_ == END)
    {
        entries_.push_back(entry);
        return static_cast<Place>(entries_.size() - 1);
    }
    Place const place = free_;
    free_ = entries_[place].olderOfSet;
    entries_[place] = entry;
    return place;
}

void ValueIndex::removeAllBut(Place kept, IndexedValue const & value, MetadataSet & set)
{
    if (count_ == 0)
        return;
    Place * link = &newestOfSet(value, &set);
    while (*link != END)
    {
        Place const place = *link;
        Entry & entry = entries_[place];
        if (place == kept || entry.set != &set || !(entry.value == value))
        {
            link = &entry.olderOfSet;
            continue;
        }
        unchainOfValue(entry);
        *link = entry.olderOfSet;
        entry.olderOfSet = free_;
        free_ = place;
        --count_;
    }
}

void ValueIndex::chain(Place place)
{
    Entry & entry = entries_[place];
    Place & ofValue = newestOfValue(entry.value);
    if (ofValue != END)
        entries_[ofValue].newerOfValue = place;
    entry.olderOfValue = ofValue;
    entry.newerOfValue = END;
    ofValue = place;

    Place & ofSet = newestOfSet(entry.value, entry.set);
    entry.olderOfSet = ofSet;
    ofSet = place;
}

void ValueIndex::unchainOfValue(Entry const & entry)
{
    (entry.newerOfValue != END ? entries_[entry.newerOfValue].olderOfValue : newestOfValue(entry.value)) =
        entry.olderOfValue;
    if (entry.olderOfValue != END)
        entries_[entry.olderOfValue].newerOfValue = entry.newerOfValue;
}

// The entries of a value stay in order: they come from one chain, the oldest
// first.
void ValueIndex::makeRoom()
{
    std::size_t const size = std::max(FIRST_CHAINS, 2 * ofValue_.size());
    Chains before(size, END);
    Chains ofSet(size, END);
    before.swap(ofValue_);
    ofSet_.swap(ofSet);

    for (Place const newest : before)
    {
        if (newest == END)
            continue;
        Place place = newest;
        while (entries_[place].olderOfValue != END)
            place = entries_[place].olderOfValue;
        while (place != END)
        {
            Place const newer = entries_[place].newerOfValue;
            chain(place);
            place = newer;
        }
    }
}

ValueIndex::Place & ValueIndex::newestOfValue(IndexedValue const & value)
{
    return ofValue_[value.hash() & (ofValue_.size() - 1)];
}

ValueIndex::Place & ValueIndex::newestOfSet(IndexedValue const & value, MetadataSet const * set)
{
    // The set alone would do, were there not sets that have a value over and
    // over. The low bits of addresses are all alike.
    UInt64 const mixed = (reinterpret_cast<std::uintptr_t>(set) ^ value.hash()) * 0x9E3779B97F4A7C15;
    return ofSet_[(mixed >> 32) & (ofSet_.size() - 1)];
}

}}}
