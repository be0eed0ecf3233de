#include "Metadata/MetadataSetImpl.h"

#include "MetaMetadata/MetaMetadataSet.h"
#include "Metadata/Element.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace Metadata {

namespace {

unsigned char const USUAL_BER_LENGTH = 4;

template <class Entries>
auto lowerBound(Entries & elements, Types::UniversalLabel const & label) noexcept
{
    return std::lower_bound(elements.begin(), elements.end(), label,
                            [](MetadataSet::Entry const & entry, Types::UniversalLabel const & wanted)
                            { return entry.first < wanted; });
}

}

MetadataSet::Impl::Impl(KLV::Key const & theKey, MetaMetadata::MetaMetadataSet const * theSchema,
                        MetadataSetOwner * theOwner) :
    key(theKey),
    schema(theSchema),
    owner(theOwner),
    berLength(USUAL_BER_LENGTH),
    cells_(theSchema != nullptr ? theSchema->metaAttributeCount() : 0)
{
}

MetadataSet::Impl::~Impl()
{
    // Out of the set first: listeners who look at it find no dead element.
    while (!elements.empty())
    {
        Element * const last = elements.back().second;
        elements.pop_back();
        cells_.destroy(last);
    }
    while (!invalid.empty())
    {
        Templates::auto_ptr<Element> const last(invalid.back());
        invalid.pop_back();
    }
}

Element * MetadataSet::Impl::find(Types::UniversalLabel const & label) const noexcept
{
    auto const place = lowerBound(elements, label);
    return place != elements.end() && place->first == label ? place->second : nullptr;
}

void MetadataSet::Impl::appendSchema(MetadataSet & set)
{
    elements.reserve(schema->metaAttributeCount());
    for (auto place = schema->metaAttributesBegin(); place != schema->metaAttributesEnd(); ++place)
    {
        Element & element = cells_.create(place->second, set);
        elements.emplace_back(element.label(), &element);
    }
}

void MetadataSet::Impl::put(Templates::auto_ptr<Element> element)
{
    auto const place = lowerBound(elements, element->label());
    if (place == elements.end() || place->first != element->label())
    {
        elements.emplace(place, element->label(), element.get());
        element.release();
        return;
    }
    cells_.destroy(std::exchange(place->second, element.release()));
}

void MetadataSet::Impl::appendInvalid(Templates::auto_ptr<Element> element)
{
    invalid.push_back(element.get());
    element.release();
}

}}
