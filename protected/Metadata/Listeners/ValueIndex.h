#pragma once

#include "Platform/Allocation.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

namespace Vantry {
namespace Types {
class SimpleDataType;
class UniversalLabel;
}

namespace Metadata {

class MetadataSet;

namespace Listeners {

/// A value of an attribute. It points to both, and has the first bytes of the
/// value, which are mostly all: telling values apart needs no look at them.
class IndexedValue
{
public:
    IndexedValue(Types::UniversalLabel const & label, Types::SimpleDataType const & value);

    /// Whether label and bytes are equal.
    bool operator==(IndexedValue const & other) const;

    UInt32 hash() const noexcept { return hash_; }

private:
    static constexpr unsigned short HEAD_SIZE = 16;

    Types::UniversalLabel const * label_;
    unsigned char const * bytes_;
    unsigned char head_[HEAD_SIZE] = {};
    UInt32 hash_;
    unsigned short size_;
};

/// The sets that have a value, in the order in which they got it.
///
/// All entries stand in one row and are chained by the hash of their value,
/// and of their value and set. Entering one and taking one out take the same
/// time however many there are, also of one value or of one set.
class ValueIndex
{
public:
    VANTRY_CLASS_ALLOCATION

    /// What is there already is entered once more.
    void insert(IndexedValue const & value, MetadataSet & set);

    /// Takes a value of a set out, as often as it is there.
    void remove(IndexedValue const & value, MetadataSet & set);

    /// Enters the new value and takes the old one out; they may be equal.
    void replace(IndexedValue const & oldValue, IndexedValue const & newValue, MetadataSet & set);

    Templates::vector<MetadataSet *> find(IndexedValue const & value) const;

private:
    using Place = UInt32;
    using Chains = Templates::vector<Place>;

    // An entry's neighbours in its chains, where the latest comes first.
    struct Entry
    {
        IndexedValue value;
        MetadataSet * set;
        Place olderOfValue;
        Place newerOfValue;
        Place olderOfSet;
    };

    // A place that is none.
    static constexpr Place END = 0xFFFFFFFF;

    Place enter(IndexedValue const & value, MetadataSet & set);
    Place takePlace(IndexedValue const & value, MetadataSet & set);
    void removeAllBut(Place kept, IndexedValue const & value, MetadataSet & set);
    void chain(Place place);
    void unchainOfValue(Entry const & entry);
    void makeRoom();
    Place & newestOfValue(IndexedValue const & value);
    Place & newestOfSet(IndexedValue const & value, MetadataSet const * set);

    Templates::vector<Entry> entries_;

    // As many of each: a power of two, and at least twice as many as entries.
    Chains ofValue_;
    Chains ofSet_;

    // The entries that were taken out, chained as those of a set.
    Place free_ = END;
    std::size_t count_ = 0;
};

}
}
}
