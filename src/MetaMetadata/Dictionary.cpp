#include "MetaMetadata/Dictionary.h"

#include "MetaMetadata/MetaElement.h"

#include <utility>

namespace Vantry { namespace MetaMetadata {

namespace {

template <class Map>
typename Map::mapped_type const * findIn(Map const & map, typename Map::key_type const & key)
{
    auto const found = map.find(key);
    return found != map.end() ? &found->second : nullptr;
}

bool hasProperty(PropertyMap const & map, Templates::wstring const & name, Templates::wstring const & value)
{
    Templates::wstring const * const property = map.findProperty(name);
    return property != nullptr && *property == value;
}

}

class Dictionary::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl() = default;
    Impl(Impl const &) = delete;
    Impl & operator=(Impl const &) = delete;

    ~Impl()
    {
        for (auto const & entry : metaElements)
            delete entry.second;
    }

    LocalTags labelsByTag;
    Templates::map<Types::UniversalLabel, Types::LocalTag> tagsByLabel;
    MetaElements metaElements;
    MetaMetadataSets sets;
};

Dictionary::Dictionary() : impl_(new Impl) {}

Dictionary::~Dictionary()
{
    delete impl_;
}

void Dictionary::add(Types::LocalTag const & tag, Types::UniversalLabel const & label)
{
    impl_->labelsByTag.insert_or_assign(tag, label);
    impl_->tagsByLabel.insert_or_assign(label, tag);
}

Types::LocalTag const * Dictionary::find(Types::UniversalLabel const & label) const
{
    return findIn(impl_->tagsByLabel, label);
}

Types::UniversalLabel const * Dictionary::find(Types::LocalTag const & tag) const
{
    return findIn(impl_->labelsByTag, tag);
}

void Dictionary::add(KLV::Key const & key, MetaMetadataSet const & set)
{
    impl_->sets.insert_or_assign(key, set);
}

MetaMetadataSet const * Dictionary::find(KLV::Key const & key) const
{
    return findIn(impl_->sets, key);
}

void Dictionary::add(Types::UniversalLabel const & label, Templates::auto_ptr<MetaElement> element)
{
    MetaElement *& place = impl_->metaElements[label];
    delete std::exchange(place, element.release());
}

MetaElement const * Dictionary::findMetaElement(Types::UniversalLabel const & label) const
{
    MetaElement * const * const found = findIn(impl_->metaElements, label);
    return found != nullptr ? *found : nullptr;
}

Dictionary::MetaElements::const_iterator Dictionary::metaElementBegin() const
{
    return impl_->metaElements.begin();
}

Dictionary::MetaElements::const_iterator Dictionary::metaElementEnd() const
{
    return impl_->metaElements.end();
}

Dictionary::MetaMetadataSets::const_iterator Dictionary::metaMetadataSetBegin() const
{
    return impl_->sets.begin();
}

Dictionary::MetaMetadataSets::const_iterator Dictionary::metaMetadataSetEnd() const
{
    return impl_->sets.end();
}

Dictionary::LocalTags::const_iterator Dictionary::localTag2ULBegin() const
{
    return impl_->labelsByTag.begin();
}

Dictionary::LocalTags::const_iterator Dictionary::localTag2ULEnd() const
{
    return impl_->labelsByTag.end();
}

Templates::vector<MetaMetadataSet const *>
Dictionary::findMetaMetadataSetProperty(Templates::wstring const & name, Templates::wstring const & value) const
{
    Templates::vector<MetaMetadataSet const *> found;
    for (auto const & entry : impl_->sets)
        if (hasProperty(entry.second, name, value))
            found.push_back(&entry.second);
    return found;
}

Templates::vector<MetaMetadataSet const *>
Dictionary::findMetaMetadataSetWithMetaAtributeProperty(Templates::wstring const & name,
                                                        Templates::wstring const & value) const
{
    Templates::vector<MetaMetadataSet const *> found;
    for (auto const & entry : impl_->sets)
        for (auto attribute = entry.second.metaAttributesBegin(); attribute != entry.second.metaAttributesEnd();
             ++attribute)
            if (hasProperty(*attribute->second, name, value))
                found.push_back(&entry.second);
    return found;
}

Templates::vector<MetaElement const *> Dictionary::findMetaElementProperty(Templates::wstring const & name,
                                                                           Templates::wstring const & value) const
{
    Templates::vector<MetaElement const *> found;
    for (auto const & entry : impl_->metaElements)
        if (hasProperty(*entry.second, name, value))
            found.push_back(entry.second);
    return found;
}

}}
