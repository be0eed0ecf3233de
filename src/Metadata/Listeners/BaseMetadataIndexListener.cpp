#include "Metadata/Listeners/BaseMetadataIndexListener.h"

#include "MetaMetadata/MetaElement.h"
#include "Platform/Integers.h"
#include "Types/SimpleDataType.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <set>

namespace Vantry { namespace Metadata { namespace Listeners {

namespace {

// A value of an attribute.
class IndexedValue
{
public:
    IndexedValue(Types::UniversalLabel const & label, Types::SimpleDataType const & value) :
        label_(&label), bytes_(value.rawBuffer()), head_(0), size_(value.serializedSize())
    {
        for (unsigned short i = 0; i < HEAD_SIZE; ++i)
            head_ = head_ << 8 | (i < size_ ? bytes_[i] : 0);
    }

    // Below, at or above zero as this comes before, is equal to or comes
    // behind the other: by label, size and bytes.
    int compare(IndexedValue const & other) const
    {
        if (label_ != other.label_ && *label_ != *other.label_)
            return *label_ < *other.label_ ? -1 : 1;
        if (size_ != other.size_)
            return size_ < other.size_ ? -1 : 1;
        if (head_ != other.head_)
            return head_ < other.head_ ? -1 : 1;
        return size_ > HEAD_SIZE ? std::memcmp(bytes_ + HEAD_SIZE, other.bytes_ + HEAD_SIZE, size_ - HEAD_SIZE) : 0;
    }

private:
    static constexpr unsigned short HEAD_SIZE = 8;

    Types::UniversalLabel const * label_;
    unsigned char const * bytes_;
    // The first bytes, which mostly tell values apart without a look at them.
    UInt64 head_;
    unsigned short size_;
};

// One value of one set. The entries of a value are ordered by set, so that
// those of a set are found among any number of others.
struct Entry
{
    bool operator<(Entry const & other) const
    {
        int const order = value.compare(other.value);
        if (order != 0)
            return order < 0;
        return set != other.set ? std::less<>()(set, other.set) : number < other.number;
    }

    bool isOf(IndexedValue const & wanted, MetadataSet const * owner) const
    {
        return set == owner && value.compare(wanted) == 0;
    }

    IndexedValue value;
    MetadataSet * set;
    // Counts up with each entry of the index, from 1.
    UInt64 number;
};

}

class BaseMetadataIndexListener::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    void insert(IndexedValue const & value, MetadataSet & set) { entries_.insert({value, &set, ++lastNumber_}); }

    void remove(IndexedValue const & value, MetadataSet & set) { removeUpTo(lastNumber_, value, set); }

    // The new value comes first: when there is no memory for it, the old one
    // is still there. They may be equal.
    void replace(IndexedValue const & oldValue, IndexedValue const & newValue, MetadataSet & set)
    {
        UInt64 const lastOfOld = lastNumber_;
        insert(newValue, set);
        removeUpTo(lastOfOld, oldValue, set);
    }

    Templates::vector<MetadataSet *> find(IndexedValue const & value) const
    {
        Templates::vector<Templates::pair<UInt64, MetadataSet *>> found;
        for (auto place = entries_.lower_bound({value, nullptr, 0});
             place != entries_.end() && place->value.compare(value) == 0; ++place)
            found.emplace_back(place->number, place->set);
        std::sort(found.begin(), found.end());

        Templates::vector<MetadataSet *> sets;
        sets.reserve(found.size());
        for (auto const & entry : found)
            sets.push_back(entry.second);
        return sets;
    }

private:
    void removeUpTo(UInt64 number, IndexedValue const & value, MetadataSet & set)
    {
        auto place = entries_.lower_bound({value, &set, 0});
        while (place != entries_.end() && place->isOf(value, &set) && place->number <= number)
            place = entries_.erase(place);
    }

    std::set<Entry, std::less<>, Platform::Allocator<Entry>> entries_;
    UInt64 lastNumber_ = 0;
};

BaseMetadataIndexListener::BaseMetadataIndexListener() : impl_(new Impl) {}

BaseMetadataIndexListener::~BaseMetadataIndexListener()
{
    delete impl_;
}

Templates::vector<MetadataSet *> BaseMetadataIndexListener::find(Types::UniversalLabel const & label,
                                                                 Types::SimpleDataType const & value) const
{
    return impl_->find({label, value});
}

void BaseMetadataIndexListener::metadataSetKey(KLV::Key &) {}

void BaseMetadataIndexListener::createdMetadataSet(MetadataSet *) {}

void BaseMetadataIndexListener::removedMetadataSet(MetadataSet *) {}

void BaseMetadataIndexListener::addedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                             Element &, Types::BaseType const & newValue)
{
    if (metaElement == nullptr || !isIndexed(metaElement->universalLabel()))
        return;
    auto const * const value = dynamic_cast<Types::SimpleDataType const *>(&newValue);
    if (value != nullptr)
        impl_->insert({metaElement->universalLabel(), *value}, set);
}

void BaseMetadataIndexListener::updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                               Element &, Types::SimpleDataType const & oldValue,
                                               Types::SimpleDataType const & newValue)
{
    if (metaElement == nullptr || !isIndexed(metaElement->universalLabel()))
        return;
    Types::UniversalLabel const & label = metaElement->universalLabel();
    impl_->replace({label, oldValue}, {label, newValue}, set);
}

void BaseMetadataIndexListener::updatedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element &,
                                               Types::Collection const &, Types::Collection const &)
{
}

void BaseMetadataIndexListener::updatedElementCollection(MetadataSet &, MetaMetadata::MetaElement const *, Element &,
                                                         Types::Collection const &, unsigned int,
                                                         Types::SimpleDataType const *)
{
}

void BaseMetadataIndexListener::removedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                               Element &, Types::BaseType const & oldValue)
{
    if (metaElement == nullptr || !isIndexed(metaElement->universalLabel()))
        return;
    auto const * const value = dynamic_cast<Types::SimpleDataType const *>(&oldValue);
    if (value != nullptr)
        impl_->remove({metaElement->universalLabel(), *value}, set);
}

}}}
