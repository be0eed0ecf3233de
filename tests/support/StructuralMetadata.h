#pragma once

#include "KLV/Key.h"
#include "MetaMetadata/Dictionary.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/MetaCollection.h"
#include "MetaMetadata/MetaReferenceCollection.h"
#include "MetaMetadata/MetaReferenceElement.h"
#include "MetaMetadata/MetaSimpleElement.h"
#include "Metadata/DMS1/DMS1MetadataKeys.h"
#include "Metadata/DMS1/DMS1MetadataULs.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionDictionary.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/StructuralMetadataKeyList.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Packs/PrimerPack.h"
#include "Platform/Text.h"
#include "Types/Boolean.h"
#include "Types/DataStream.h"
#include "Types/DataValue.h"
#include "Types/Int16.h"
#include "Types/Int32.h"
#include "Types/Int8.h"
#include "Types/J2KCodingStyleDefault.h"
#include "Types/J2KPictureComponent.h"
#include "Types/J2KQuantisationDefault.h"
#include "Types/Length.h"
#include "Types/Orientation.h"
#include "Types/Position.h"
#include "Types/ProductVersion.h"
#include "Types/RGBALayout.h"
#include "Types/Rational.h"
#include "Types/SignalStandard.h"
#include "Types/Timestamp.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/UMID32.h"
#include "Types/UTF16String.h"
#include "Types/UUID.h"
#include "Types/UniversalLabel.h"
#include "Types/VersionType.h"
#include "Types/Visitors/GetIdentifierVisitor.h"
#include "support/Bytes.h"
#include "support/Values.h"

#include <numeric>
#include <stdexcept>
#include <vector>

namespace Vantry { namespace Tests {

/// 32 bytes, counted up from `first`.
inline Bytes countedBytes(unsigned char first)
{
    Bytes bytes(32);
    std::iota(bytes.begin(), bytes.end(), first);
    return bytes;
}

/// A value of as many of these bytes as it takes.
template <class Type>
Type sample(unsigned char first = 1)
{
    return valueOf<Type>(countedBytes(first));
}

/// A label by its version and item bytes, "02 05 20 07 01 08 00 00 00".
inline Types::UniversalLabel attributeLabel(char const * bytes)
{
    return Types::UniversalLabel((hex("06 0E 2B 34 01 01 01") + hex(bytes)).data());
}

/// The keys of all sets of structural metadata.
inline Templates::vector<KLV::Key> structuralKeys()
{
    using namespace Metadata::Structural::StructuralMetadataKeys;
#define VANTRY_KEY(name, text) name(),
    return {VANTRY_STRUCTURAL_METADATA_KEYS(VANTRY_KEY)};
#undef VANTRY_KEY
}

/// A partition with a dictionary in which each kind of structural set has each
/// attribute that any has, all of them optional. So what goes to a wrong
/// attribute goes through, and is seen.
class StructuralMetadata
{
public:
    /// \param without  an attribute that no set has
    explicit StructuralMetadata(Types::UniversalLabel const & without = Metadata::MetadataULs::null())
    {
        namespace Id = Types::Identifiers;
        add(Metadata::MetadataULs::instanceUID(), Id::UUID);
        addAttributes();

        for (KLV::Key const & key : structuralKeys())
            addSet(key, labels_, without);
        addDMS1(without);

        metadata_.reset(new Metadata::PartitionMetadata(
            Templates::auto_ptr<Metadata::PartitionDictionary>(new Metadata::PartitionDictionary(
                dictionary_, Templates::auto_ptr<Packs::PrimerPack>(new Packs::PrimerPack)))));
    }

    Metadata::PartitionMetadata & operator*() { return *metadata_; }
    Metadata::PartitionMetadata * operator->() { return metadata_.get(); }

    /// A new set of the class or, if that is abstract, of one derived from it.
    template <class Set>
    Set & make()
    {
        for (KLV::Key const & key : structuralKeys())
        {
            Metadata::MetadataSet & made = *metadata_->createMetadataSet(key);
            if (Set * const set = dynamic_cast<Set *>(&made))
                return *set;
            metadata_->removeMetadataSet(Types::UUID(*made.instanceUID()));
        }
        throw std::logic_error("no set of this class");
    }

    template <class Set>
    Set & make(KLV::Key const & key)
    {
        return dynamic_cast<Set &>(*metadata_->createMetadataSet(key));
    }

private:
    void addAttributes()
    {
        namespace Id = Types::Identifiers;
#define VALUE(Class, name, Type, label) add(attributeLabel(label), identifierOf<Types::Type>());
#define ARRAY(Class, name, Name, names, Type, label) add(attributeLabel(label), Id::Array, identifierOf<Types::Type>());
#define BATCH(Class, name, Name, names, Type, label) add(attributeLabel(label), Id::Batch, identifierOf<Types::Type>());
#define REFERENCE(Class, name, Target, label) add(attributeLabel(label), Id::StrongReference);
#define REFERENCE_ARRAY(Class, name, Name, names, Target, label) \
    add(attributeLabel(label), Id::Array, Id::StrongReference);
#define REFERENCE_BATCH(Class, name, Name, names, Target, label) \
    add(attributeLabel(label), Id::Batch, Id::StrongReference);
#define GENERATION(Type, label) add(attributeLabel(label), identifierOf<Types::Type>());
#define SOURCE_TRACK(Type, label) add(attributeLabel(label), identifierOf<Types::Type>());
#define SEGMENT_TRACKS(Type, label) add(attributeLabel(label), Id::Batch, identifierOf<Types::Type>());
#include "Metadata/Structural/AttributeRows.h"
#undef VALUE
#undef ARRAY
#undef BATCH
#undef REFERENCE
#undef REFERENCE_ARRAY
#undef REFERENCE_BATCH
#undef GENERATION
#undef SOURCE_TRACK
#undef SEGMENT_TRACKS
    }

    void addDMS1(Types::UniversalLabel const & without)
    {
        using namespace Metadata::DMS1;
        Types::UniversalLabel const & language = DMS1MetadataULs::frameworkExtendedTextLanguageCode();
        Types::UniversalLabel const & kind = DMS1MetadataULs::clipKind();
        add(language, Types::Identifiers::ISO7bitCharString);
        add(kind, Types::Identifiers::UTF16CharString);
        addSet(DMS1MetadataKeys::clipFramework(), {Metadata::MetadataULs::instanceUID(), language, kind}, without);
    }

    template <class Type>
    static Types::Identifiers::Identifier identifierOf()
    {
        Types::Visitors::GetIdentifierVisitor visitor;
        sample<Type>().accept(visitor);
        return visitor.identifier();
    }

    void add(Types::UniversalLabel const & label, Types::Identifiers::Identifier type,
             Types::Identifiers::Identifier subType = Types::Identifiers::Unknown)
    {
        using namespace MetaMetadata;
        if (dictionary_->findMetaElement(label) != nullptr)
            return;

        Templates::vector<KLV::Key> allowed = structuralKeys();
        allowed.push_back(Metadata::DMS1::DMS1MetadataKeys::clipFramework());
        MetaCollectionElement::CollectionSizeLimits const limits;
        Templates::auto_ptr<MetaElement> element;
        if (subType == Types::Identifiers::StrongReference)
            element.reset(new MetaReferenceCollection(label, limits, allowed, type, subType));
        else if (subType != Types::Identifiers::Unknown)
            element.reset(new MetaCollection(label, limits, type, subType));
        else if (type == Types::Identifiers::StrongReference)
            element.reset(new MetaReferenceElement(label, allowed, type));
        else
            element.reset(new MetaSimpleElement(label, type));
        dictionary_->add(label, element);
        labels_.push_back(label);
    }

    void addSet(KLV::Key const & key, std::vector<Types::UniversalLabel> const & labels,
                Types::UniversalLabel const & without)
    {
        MetaMetadata::MetaMetadataSet set(key);
        for (Types::UniversalLabel const & label : labels)
            if (label != without)
            {
                Templates::SharedPtr<MetaMetadata::MetaAttribute> const attribute(new MetaMetadata::MetaAttribute(
                    *dictionary_->findMetaElement(label), MetaMetadata::AttributeRequiredStatus::Opt,
                    Templates::auto_ptr<Types::BaseType const>(), nullptr));
                attribute->addProperty(Platform::stringToWstring("RequiresSemanticsValidation"), Templates::wstring());
                set.addMetaAttribute(attribute);
            }
        dictionary_->add(key, set);
    }

    Templates::SharedPtr<MetaMetadata::Dictionary> dictionary_{new MetaMetadata::Dictionary};
    std::vector<Types::UniversalLabel> labels_;
    Templates::auto_ptr<Metadata::PartitionMetadata> metadata_;
};

}}
