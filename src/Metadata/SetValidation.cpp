#include "Metadata/MetadataSet.h"

#include "DataIO/Memory/MemoryDataSink.h"
#include "MetaMetadata/MetaAttribute.h"
#include "Metadata/Element.h"
#include "Metadata/ElementValue.h"
#include "Platform/WideLiteral.h"
#include "Types/BaseType.h"

#include <algorithm>

namespace Vantry { namespace Metadata {

namespace {

using DataIO::Memory::MemoryDataSink;
using MetaMetadata::AttributeRequiredStatus;
using MetaMetadata::MetaAttribute;

bool startsWith(MemoryDataSink const & bytes, MemoryDataSink const & start)
{
    return bytes.serializedSize() >= start.serializedSize() &&
           std::equal(start.rawBuffer(), start.rawBuffer() + start.serializedSize(), bytes.rawBuffer());
}

// Whether the value says "not known".
bool isDistinguished(Element const & element, MetaAttribute const & attribute)
{
    Types::BaseType const * const distinguished = attribute.getDistinguishedValue();
    Types::BaseType const * const value = valueOf(element);
    if (distinguished == nullptr || value == nullptr)
        return false;

    MemoryDataSink wanted;
    MemoryDataSink given;
    distinguished->serialize(wanted);
    value->serialize(given);
    return startsWith(given, wanted);
}

bool saysNothing(Element const & element, MetaAttribute const & attribute)
{
    return element.empty() || isDistinguished(element, attribute);
}

// Adds the conditional attributes, or the others, for which `holds`.
template <class Condition>
void collect(MetadataSet const & set, bool conditional, Templates::vector<Element *> & elements, Condition holds)
{
    Templates::wstring const property(Platform::wide(u"RequiresSemanticsValidation").text);
    for (MetadataSet::Entry const & entry : set)
    {
        MetaAttribute const * const attribute = entry.second->placeInSchema();
        if (attribute != nullptr && conditional == !attribute->getProperty(property).empty() &&
            holds(*entry.second, *attribute))
            elements.push_back(entry.second);
    }
}

}

void MetadataSet::openElements(Templates::vector<Element *> & elements) const
{
    collect(*this, false, elements,
            [](Element const & element, MetaAttribute const & attribute)
            {
                AttributeRequiredStatus::Status const status = attribute.requiredStatus();
                return element.empty() &&
                       (status == AttributeRequiredStatus::Req || status == AttributeRequiredStatus::EReq);
            });
}

void MetadataSet::incompleteElements(Templates::vector<Element *> & elements) const
{
    collect(*this, false, elements,
            [](Element const & element, MetaAttribute const & attribute) {
                return attribute.requiredStatus() == AttributeRequiredStatus::BEffort &&
                       saysNothing(element, attribute);
            });
}

void MetadataSet::possiblyOpenElements(Templates::vector<Element *> & elements) const
{
    collect(*this, true, elements, [](Element const & element, MetaAttribute const &) { return element.empty(); });
}

void MetadataSet::possiblyIncompleteElements(Templates::vector<Element *> & elements) const
{
    collect(*this, true, elements, isDistinguished);
}

void MetadataSet::possiblyForbiddenElements(Templates::vector<Element *> & elements) const
{
    collect(*this, true, elements, [](Element const & element, MetaAttribute const &) { return !element.empty(); });
}

void MetadataSet::getSemanticsValidationElements(Templates::vector<Element *> & elements) const
{
    collect(*this, true, elements, saysNothing);
}

}}
