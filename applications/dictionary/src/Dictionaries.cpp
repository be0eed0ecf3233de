#include "Schema/Dictionaries.h"

#include "DistinguishedValue.h"
#include "MetaMetadata/MetaCollection.h"
#include "MetaMetadata/MetaReferenceCollection.h"
#include "MetaMetadata/MetaReferenceElement.h"
#include "MetaMetadata/MetaSimpleElement.h"
#include "Schema/Definition.h"
#include "Types/BaseType.h"
#include "Utils/Text.h"

#include <vector>

namespace Vantry { namespace Schema {

namespace {

namespace Id = Types::Identifiers;
using MetaMetadata::MetaElement;

bool isReference(Id::Identifier type)
{
    return type == Id::StrongReference || type == Id::WeakReference;
}

bool isCollection(Id::Identifier type)
{
    return type == Id::Array || type == Id::Batch;
}

class Builder
{
public:
    explicit Builder(Tables const & tables) : tables_(tables), dictionary_(new MetaMetadata::Dictionary) {}

    Templates::SharedPtr<MetaMetadata::Dictionary> build()
    {
        for (ElementRow const & row : tables_.elements)
            addElement(row);
        for (SetRow const & row : tables_.sets)
            addSet(row);
        return dictionary_;
    }

private:
    void addElement(ElementRow const & row)
    {
        Types::UniversalLabel const label(row.label.bytes);
        Templates::auto_ptr<MetaElement> element(makeElement(row, label));
        Templates::wstring const name = Utils::stringToWstring(row.name);
        element->addProperty(NAME, name);
        element->addProperty(SYMBOL, Utils::stringToWstring(row.symbol));

        if (row.tag != 0)
            dictionary_->add(tagOf(row), label);
        elements_.push_back({element.get(), &row, name});
        dictionary_->add(label, element);
    }

    static MetaElement * makeElement(ElementRow const & row, Types::UniversalLabel const & label)
    {
        if (!isCollection(row.type))
            return isReference(row.type) ? static_cast<MetaElement *>(new MetaMetadata::MetaReferenceElement(
                                               label, referencesOf(row), row.type))
                                         : new MetaMetadata::MetaSimpleElement(label, row.type);

        MetaMetadata::MetaCollectionElement::CollectionSizeLimits const limits(row.minimum, row.maximum);
        return isReference(row.subType) ? static_cast<MetaElement *>(new MetaMetadata::MetaReferenceCollection(
                                              label, limits, referencesOf(row), row.type, row.subType))
                                        : new MetaMetadata::MetaCollection(label, limits, row.type, row.subType);
    }

    static MetaMetadata::MetaReferenceHolder::Keys referencesOf(ElementRow const & row)
    {
        MetaMetadata::MetaReferenceHolder::Keys keys;
        keys.reserve(row.references.count);
        for (LabelBytes const & key : row.references)
            keys.push_back(KLV::Key(key.bytes));
        return keys;
    }

    static Types::LocalTag tagOf(ElementRow const & row)
    {
        unsigned char const bytes[] = {static_cast<unsigned char>(row.tag >> 8), static_cast<unsigned char>(row.tag)};
        return Types::LocalTag(bytes);
    }

    void addSet(SetRow const & row)
    {
        KLV::Key const key(row.key.bytes);
        MetaMetadata::MetaMetadataSet set(key);
        set.addProperty(NAME, Utils::stringToWstring(row.name));
        set.addProperty(SYMBOL, Utils::stringToWstring(row.symbol));
        for (AttributeRow const & attribute : row.attributes)
            set.addMetaAttribute(makeAttribute(attribute));
        dictionary_->add(key, set);
    }

    Templates::SharedPtr<MetaMetadata::MetaAttribute> makeAttribute(AttributeRow const & row) const
    {
        Element const & element = elements_[row.element];
        Types::LocalTag const tag = tagOf(*element.row);
        Templates::SharedPtr<MetaMetadata::MetaAttribute> attribute(new MetaMetadata::MetaAttribute(
            *element.metaElement, row.status, distinguishedOf(*element.row), element.row->tag != 0 ? &tag : nullptr));
        attribute->addProperty(NAME, element.name);
        attribute->addProperty(SEMANTICS, Utils::stringToWstring(row.semantics));
        return attribute;
    }

    static Templates::auto_ptr<Types::BaseType const> distinguishedOf(ElementRow const & row)
    {
        if (row.distinguished.count == 0)
            return Templates::auto_ptr<Types::BaseType const>();
        return makeDistinguished(row.distinguished, row.type, row.subType);
    }

    struct Element
    {
        MetaElement const * metaElement;
        ElementRow const * row;
        Templates::wstring name;
    };

    Templates::wstring const NAME = Utils::stringToWstring("name");
    Templates::wstring const SYMBOL = Utils::stringToWstring("symbol");
    Templates::wstring const SEMANTICS = Utils::stringToWstring("RequiresSemanticsValidation");

    Tables const & tables_;
    Templates::SharedPtr<MetaMetadata::Dictionary> dictionary_;
    std::vector<Element> elements_;
};

}

Templates::SharedPtr<MetaMetadata::Dictionary> makeDictionary(Tables const & tables)
{
    return Builder(tables).build();
}

Templates::SharedPtr<MetaMetadata::Dictionary> builtInDictionary()
{
    return makeDictionary(builtInTables());
}

Templates::SharedPtr<MetaMetadata::Dictionary> dictionaryWith(std::string const & path)
{
    Definition definition(builtInTables());
    definition.addFile(path);
    return makeDictionary(definition.tables());
}

}}
