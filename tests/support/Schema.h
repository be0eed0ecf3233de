#pragma once

#include "MetaMetadata/Dictionary.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/MetaCollection.h"
#include "MetaMetadata/MetaReferenceCollection.h"
#include "MetaMetadata/MetaReferenceElement.h"
#include "MetaMetadata/MetaSimpleElement.h"
#include "Metadata/MetadataKeys.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionDictionary.h"
#include "Packs/PrimerPack.h"
#include "Platform/Text.h"
#include "Types/UUID.h"
#include "support/Bytes.h"

#include <memory>

namespace Vantry { namespace Tests {

/// Attributes of the small schema: the last byte of their labels, and of
/// their static tags 01.xx.
enum SchemaAttribute : unsigned char
{
    NUMBER = 0x10,   ///< UInt32
    TEXT = 0x11,     ///< UTF-16
    CHILD = 0x20,    ///< strong reference
    CHILDREN = 0x21, ///< array of strong references
    PEER = 0x22,     ///< weak reference
    PEERS = 0x23,    ///< batch of weak references, three at most
    VALUES = 0x30,   ///< array of two or three UInt16
    MARKS = 0x31,    ///< batch of UInt8
    STYLE = 0x32,    ///< J2KCodingStyleDefault
    ELSEWHERE = 0x40 ///< Int16, in no set
};

inline Types::UniversalLabel labelOf(unsigned char attribute)
{
    Bytes bytes = hex("06 0E 2B 34 01 01 01 01 7F 00 00 00 00 00 00 00");
    bytes[15] = attribute;
    return Types::UniversalLabel(bytes.data());
}

inline Types::LocalTag tagOf(unsigned int number)
{
    unsigned char const bytes[] = {static_cast<unsigned char>(number >> 8), static_cast<unsigned char>(number)};
    return Types::LocalTag(bytes);
}

/// The tag that an attribute of the schema has in every file.
inline Types::LocalTag tagOf(SchemaAttribute attribute)
{
    return tagOf(0x0100u + attribute);
}

unsigned int const INSTANCE_UID_TAG = 0x3C0A;
unsigned int const PACKAGES_TAG = 0x1901;

inline KLV::Key nodeKey()
{
    return KLV::Key(hex("06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 7E 00").data());
}

/// A local set that the schema doesn't have.
inline KLV::Key strangeKey()
{
    return KLV::Key(hex("06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 7D 00").data());
}

/// A dictionary for tests: a Preface with an instance identifier, a child and
/// packages; and nodes, which have all attributes but ELSEWHERE. References
/// may go to nodes.
class Schema
{
public:
    using Status = MetaMetadata::AttributeRequiredStatus;
    using Limits = MetaMetadata::MetaCollectionElement::CollectionSizeLimits;
    using Dictionary = Templates::SharedPtr<MetaMetadata::Dictionary>;

    /// An attribute of a set.
    struct Place
    {
        Types::UniversalLabel label;
        char const * name = "Name";
        Status::Status status = Status::Opt;

        /// What RequiresSemanticsValidation says.
        char const * conditional = "";

        /// Taken over.
        Types::BaseType const * distinguished = nullptr;
    };

    Schema() : dictionary_(new MetaMetadata::Dictionary)
    {
        namespace Id = Types::Identifiers;

        add(Metadata::MetadataULs::instanceUID(), INSTANCE_UID_TAG, Id::UUID);
        add(Metadata::MetadataULs::packages(), PACKAGES_TAG, Id::Batch, Id::StrongReference, Limits());
        add(NUMBER, Id::UInt32);
        add(TEXT, Id::UTF16CharString);
        add(CHILD, Id::StrongReference);
        add(CHILDREN, Id::Array, Id::StrongReference);
        add(PEER, Id::WeakReference);
        add(PEERS, Id::Batch, Id::WeakReference, Limits(0, 3));
        add(VALUES, Id::Array, Id::UInt16, Limits(2, 3));
        add(MARKS, Id::Batch, Id::UInt8);
        add(STYLE, Id::J2KCodingStyleDefault);
        add(ELSEWHERE, Id::Int16);

        Place const identifier = {Metadata::MetadataULs::instanceUID(), "InstanceUID", Status::Req};
        add(Metadata::MetadataKeys::preface(),
            {identifier, {Metadata::MetadataULs::packages(), "Packages"}, {labelOf(CHILD), "Child"}});
        add(nodeKey(), {identifier,
                        {labelOf(NUMBER), "Number", Status::Req},
                        {labelOf(TEXT), "Text"},
                        {labelOf(CHILD), "Child"},
                        {labelOf(CHILDREN), "Children"},
                        {labelOf(PEER), "Peer"},
                        {labelOf(PEERS), "Peers"},
                        {labelOf(VALUES), "Values"},
                        {labelOf(MARKS), "Marks"},
                        {labelOf(STYLE), "Style"}});
    }

    Dictionary const & dictionary() const { return dictionary_; }

    MetaMetadata::MetaMetadataSet const * set(KLV::Key const & key) const
    {
        return static_cast<MetaMetadata::Dictionary const &>(*dictionary_).find(key);
    }

    /// Adds a set, or puts it in place of the one with this key.
    void add(KLV::Key const & key, std::vector<Place> const & places)
    {
        MetaMetadata::MetaMetadataSet set(key);
        for (Place const & place : places)
        {
            Templates::SharedPtr<MetaMetadata::MetaAttribute> const attribute(new MetaMetadata::MetaAttribute(
                *dictionary_->findMetaElement(place.label), place.status,
                Templates::auto_ptr<Types::BaseType const>(place.distinguished), nullptr));
            attribute->addProperty(Platform::stringToWstring("name"), Platform::stringToWstring(place.name));
            attribute->addProperty(Platform::stringToWstring("RequiresSemanticsValidation"),
                                   Platform::stringToWstring(place.conditional));
            set.addMetaAttribute(attribute);
        }
        dictionary_->add(key, set);
    }

    /// Adds an attribute with one value, or a collection of values of
    /// `subType`.
    void add(Types::UniversalLabel const & label, unsigned int tag, Types::Identifiers::Identifier type,
             Types::Identifiers::Identifier subType = Types::Identifiers::Unknown, Limits const & limits = Limits())
    {
        using namespace MetaMetadata;
        MetaReferenceHolder::Keys const nodes(1, nodeKey());
        bool const collection = type == Types::Identifiers::Array || type == Types::Identifiers::Batch;

        Templates::auto_ptr<MetaElement> element;
        if (collection && isReference(subType))
            element.reset(new MetaReferenceCollection(label, limits, nodes, type, subType));
        else if (collection)
            element.reset(new MetaCollection(label, limits, type, subType));
        else if (isReference(type))
            element.reset(new MetaReferenceElement(label, nodes, type));
        else
            element.reset(new MetaSimpleElement(label, type));
        dictionary_->add(label, element);
        dictionary_->add(tagOf(tag), label);
    }

    /// A partition whose primer has all static tags.
    std::unique_ptr<Metadata::PartitionDictionary> partitionDictionary() const
    {
        Templates::auto_ptr<Packs::PrimerPack> primer(new Packs::PrimerPack);
        for (auto at = dictionary_->localTag2ULBegin(); at != dictionary_->localTag2ULEnd(); ++at)
            primer->add(at->first, at->second);
        return partitionDictionary(primer);
    }

    std::unique_ptr<Metadata::PartitionDictionary>
    partitionDictionary(Templates::auto_ptr<Packs::PrimerPack> primer) const
    {
        return std::make_unique<Metadata::PartitionDictionary>(dictionary_, primer);
    }

private:
    static bool isReference(Types::Identifiers::Identifier type)
    {
        return type == Types::Identifiers::StrongReference || type == Types::Identifiers::WeakReference;
    }

    void add(SchemaAttribute attribute, Types::Identifiers::Identifier type,
             Types::Identifiers::Identifier subType = Types::Identifiers::Unknown, Limits const & limits = Limits())
    {
        add(labelOf(attribute), 0x0100u + attribute, type, subType, limits);
    }

    Dictionary dictionary_;
};

}}
