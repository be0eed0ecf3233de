#include "Metadata/SchemaRules.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidChange.h"
#include "Exceptions/InvalidMetaAttribute.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/MetaCollectionElement.h"
#include "MetaMetadata/Visitors/GetMetaElementVisitor.h"
#include "Metadata/Element.h"
#include "Platform/WideLiteral.h"
#include "Types/SimpleDataType.h"
#include "Types/Visitors/GetIdentifierVisitor.h"

#include <string>

namespace Vantry { namespace Metadata { namespace SchemaRules {

namespace {

[[noreturn]] void failType(Types::Identifiers::Identifier given, Types::Identifiers::Identifier expected)
{
    // There never was a blank behind "element".
    VANTRY_FAIL(InvalidChange,
                Platform::stringToWstring("Setting value with an invalid type. Value Type of new value: ") +
                    Types::Identifiers::identifierToString(given) +
                    Platform::stringToWstring(" Value type of element") +
                    Types::Identifiers::identifierToString(expected));
}

bool isRequired(Element const & element)
{
    return element.placeInSchema() != nullptr &&
           element.placeInSchema()->requiredStatus() == MetaMetadata::AttributeRequiredStatus::Req;
}

}

char const NO_PLACE_TEXT[] = "ReferenceElement can not be changed because there is no metaAttribute.";

Types::Identifiers::Identifier identifierOf(Types::BaseType const * value)
{
    Types::Visitors::GetIdentifierVisitor visitor;
    if (value != nullptr)
        value->accept(visitor);
    return visitor.identifier();
}

Templates::wstring nameOf(Element const & element)
{
    Templates::wstring const * const name = element.placeInSchema() != nullptr
                                                ? element.placeInSchema()->findProperty(Platform::wide(u"name").text)
                                                : nullptr;
    return name != nullptr ? *name : Platform::stringToWstring("<unknown>");
}

Templates::wstring aboutValue(Element const & element, char const * rest)
{
    return Platform::stringToWstring("Value '") + nameOf(element) + Platform::stringToWstring(rest);
}

Templates::wstring aboutValue(Element const & element, char const * lead, unsigned int number, char const * end)
{
    return aboutValue(element, (lead + std::to_string(number) + end).c_str());
}

MetaMetadata::MetaCollectionElement const * collectionRules(Element const & element)
{
    return MetaMetadata::Visitors::getMetaElement<MetaMetadata::MetaCollectionElement>(element.metaElement());
}

void checkValue(Element const & element, Types::SimpleDataType const * value, bool force)
{
    if (value == nullptr)
    {
        if (!force && isRequired(element))
            VANTRY_FAIL(InvalidChange, aboutValue(element, "' is required according to Schema"));
        return;
    }

    Types::Identifiers::Identifier const given = identifierOf(value);
    if (element.metaElement() != nullptr && given != element.metaElement()->dataType())
        failType(given, element.metaElement()->dataType());
}

void requirePlace(Element const & element, char const * text)
{
    if (element.placeInSchema() == nullptr)
        VANTRY_FAIL(InvalidMetaAttribute, text);
}

}}}
