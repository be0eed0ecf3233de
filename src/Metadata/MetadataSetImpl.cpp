#include "Metadata/MetadataSetImpl.h"

#include "Metadata/Element.h"

#include <algorithm>

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
    key(theKey), schema(theSchema), owner(theOwner), berLength(USUAL_BER_LENGTH)
{
}

MetadataSet::Impl::~Impl()
{
    // Out of the set first: listeners who look at it find no dead element.
    while (!elements.empty())
    {
        Templates::auto_ptr<Element> const last(elements.back().second);
        elements.pop_back();
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

void MetadataSet::Impl::append(Templates::auto_ptr<Element> element)
{
    elements.emplace_back(element->label(), element.get());
    element.release();
}

void MetadataSet::Impl::put(Templates::auto_ptr<Element> element)
{
    auto const place = lowerBound(elements, element->label());
    if (place == elements.end() || place->first != element->label())
        elements.emplace(place, element->label(), element.get());
    else
    {
        Templates::auto_ptr<Element> const old(place->second);
        place->second = element.get();
    }
    element.release();
}

void MetadataSet::Impl::appendInvalid(Templates::auto_ptr<Element> element)
{
    invalid.push_back(element.get());
    element.release();
}

}}
