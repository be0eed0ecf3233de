#include "SetReport.h"

#include "ElementContent.h"
#include "MetaMetadata/AbstractMetaAttributeVisitor.h"
#include "MetaMetadata/Dictionary.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/MetaCollectionElement.h"
#include "MetaMetadata/MisplacedAttribute.h"
#include "MetaMetadata/UnknownAttribute.h"
#include "MetaMetadata/Visitors/GetMetaElementVisitor.h"
#include "Metadata/Element.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/PartitionDictionary.h"
#include "Packs/PrimerPack.h"
#include "Platform/Text.h"
#include "Text.h"
#include "Types/Identifiers.h"

#include <utility>

namespace Vantry { namespace Application {

namespace {

using MetaMetadata::MetaElement;
using MetaMetadata::UnknownAttribute;
using TextForm = Types::StringRepresentationEncodingType;

char const * whatIsWrong(UnknownAttribute::Reason reason)
{
    switch (reason)
    {
    case UnknownAttribute::TagNotInPrimer:
        return "the primer pack lacks the tag";
    case UnknownAttribute::LabelNotInDictionary:
        return "the dictionary lacks the label";
    case UnknownAttribute::StaticTagNotInDictionary:
        return "the dictionary lacks the tag";
    case UnknownAttribute::InvalidTag:
        return "no element may have this tag";
    case UnknownAttribute::LabelCollision:
        return "primer pack and dictionary have different labels for the tag";
    default:
        return "the value isn't of its type";
    }
}

std::string propertyOf(MetaMetadata::PropertyMap const & properties, char const * name)
{
    Templates::wstring const * const text = properties.findProperty(Platform::stringToWstring(name));
    return text != nullptr ? narrow(text->c_str()) : "";
}

std::string nameOfType(Types::Identifiers::Identifier type)
{
    return narrow(Types::Identifiers::identifierToString(type));
}

/// Finds out what an attribute is, also where the set couldn't take its value.
class Identification : public MetaMetadata::AbstractMetaAttributeVisitor
{
public:
    Identification(Metadata::PartitionDictionary const & dictionary, ElementReport & report) :
        dictionary_(dictionary), report_(report)
    {
    }

    void visit(UnknownAttribute const & attribute) override
    {
        bool const isInvalid = attribute.reason() == UnknownAttribute::InvalidValue;
        report_.fault = isInvalid ? "invalid" : "unknown";
        report_.reason = whatIsWrong(attribute.reason());
        report_.tag = narrow(attribute.localTag().toString(TextForm::DOTTED_BYTES).c_str());

        Types::UniversalLabel const * label = dictionary_.primer().find(attribute.localTag());
        if (label == nullptr && isInvalid)
            label = schema().find(attribute.localTag());
        if (label != nullptr)
            fillByLabel(*label);
    }

    void visit(MetaMetadata::MisplacedAttribute const & attribute) override
    {
        report_.fault = "misplaced";
        report_.reason = "the element has no place in this set";
        fill(attribute.metaElement());
    }

    void visit(MetaMetadata::MetaAttribute const & attribute) override { fill(attribute.metaElement()); }

private:
    MetaMetadata::Dictionary const & schema() const { return *dictionary_.dictionary(); }

    void fillByLabel(Types::UniversalLabel const & label)
    {
        report_.label = textOf(label, TextForm::DOTTED_BYTES);
        if (MetaElement const * const metaElement = schema().findMetaElement(label))
            fillNames(*metaElement);
    }

    void fill(MetaElement const & metaElement)
    {
        Types::UniversalLabel const & label = metaElement.universalLabel();
        Types::LocalTag const * tag = dictionary_.primer().find(label);
        if (tag == nullptr)
            tag = schema().find(label);
        if (tag != nullptr)
            report_.tag = narrow(tag->toString(TextForm::DOTTED_BYTES).c_str());
        fillNames(metaElement);
    }

    void fillNames(MetaElement const & metaElement)
    {
        using MetaMetadata::MetaCollectionElement;
        report_.name = propertyOf(metaElement, "name");
        report_.symbol = propertyOf(metaElement, "symbol");
        report_.type = nameOfType(metaElement.dataType());
        if (auto const * const items = MetaMetadata::Visitors::getMetaElement<MetaCollectionElement>(&metaElement))
            report_.itemType = nameOfType(items->dataSubType());
    }

    Metadata::PartitionDictionary const & dictionary_;
    ElementReport & report_;
};

}

std::vector<ElementReport> SetReport::operator()(Metadata::MetadataSet const & set) const
{
    std::vector<ElementReport> elements;
    for (Metadata::MetadataSet::Entry const & entry : set)
        append(*entry.second, elements);
    for (auto invalid = set.invalidBegin(); invalid != set.invalidEnd(); ++invalid)
        append(**invalid, elements);
    return elements;
}

void SetReport::append(Metadata::Element const & element, std::vector<ElementReport> & elements) const
{
    Types::BaseType const * const content = contentOf(element);
    if (content == nullptr)
        return;

    ElementReport report;
    Identification identification(dictionary_, report);
    element.metaAttribute()->accept(identification);
    report.value = values_(*content);
    elements.push_back(std::move(report));
}

}}
