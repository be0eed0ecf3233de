#pragma once

#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/ReferenceElement.h"
#include "Types/StrongReference.h"
#include "Types/WeakReference.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/Elements.h"

namespace Vantry { namespace Tests {

/// An identifier for each number.
inline Types::UUID numberedUUID(unsigned int number)
{
    Bytes bytes = repeated(16, 0xEE);
    for (int i = 15; i > 11; --i, number >>= 8)
        bytes[static_cast<std::size_t>(i)] = static_cast<unsigned char>(number);
    return Types::UUID(bytes.data());
}

template <class Kind>
Templates::auto_ptr<Types::Reference> referenceTo(unsigned int number)
{
    return Templates::auto_ptr<Types::Reference>(new Kind(numberedUUID(number)));
}

/// The metadata of a partition after a small schema. Its sets are told apart
/// by the numbers in their instance identifiers.
class Partition
{
public:
    explicit Partition(Schema const & theSchema = Schema()) :
        schema(theSchema),
        metadata(Templates::auto_ptr<Metadata::PartitionDictionary>(schema.partitionDictionary().release()))
    {
    }

    Metadata::MetadataSet & add(KLV::Key const & key, unsigned int number)
    {
        Metadata::MetadataSet & set = *metadata.createMetadataSet(key);
        identify(set, numberedUUID(number));
        return set;
    }

    Metadata::MetadataSet & preface(unsigned int number) { return add(Metadata::MetadataKeys::preface(), number); }
    Metadata::MetadataSet & node(unsigned int number) { return add(nodeKey(), number); }

    /// Have a set own one set, by CHILD, and several, by CHILDREN.
    static void own(Metadata::MetadataSet & set, unsigned int child)
    {
        elementOf<Metadata::ReferenceElement>(set, CHILD)
            .setUnverifiedReference(referenceTo<Types::StrongReference>(child));
    }

    static void ownAll(Metadata::MetadataSet & set, std::vector<unsigned int> const & children)
    {
        auto & element = elementOf<Metadata::ArrayReferenceElement>(set, CHILDREN);
        for (unsigned int child : children)
            element.appendUnverifiedReference(referenceTo<Types::StrongReference>(child));
    }

    /// Has a set know another one.
    static void know(Metadata::MetadataSet & set, unsigned int peer)
    {
        elementOf<Metadata::ReferenceElement>(set, PEER).setUnverifiedReference(
            referenceTo<Types::WeakReference>(peer));
    }

    /// A Preface of number 0 and below it a chain of nodes, each of which owns
    /// the next.
    void addChain(unsigned int nodes)
    {
        own(preface(0), 1);
        for (unsigned int i = 1; i < nodes; ++i)
            own(node(i), i + 1);
        node(nodes);
    }

    Metadata::MetadataSet * load(Bytes const & bytes)
    {
        BytesPacket packet(bytes);
        return metadata.load(*packet);
    }

    Metadata::MetadataSet * find(unsigned int number) const
    {
        auto const found = metadata.find(Metadata::MetadataULs::instanceUID(), numberedUUID(number));
        return found.empty() ? nullptr : found.front();
    }

    Bytes written(Metadata::PartitionMetadata::SerializationOrder order, bool withDark = true, bool withPrimer = true)
    {
        BytesSink sink;
        metadata.serialize(sink, withDark, order, withPrimer);
        return sink.bytes();
    }

    Schema schema;
    Metadata::PartitionMetadata metadata;
};

/// The last four bytes of the instance identifier, as a number.
inline unsigned int numberOf(Metadata::MetadataSet const & set)
{
    unsigned char const * const bytes = set.instanceUID()->rawBuffer();
    return static_cast<unsigned int>(bytes[12] << 24 | bytes[13] << 16 | bytes[14] << 8 | bytes[15]);
}

template <class Sets>
std::vector<unsigned int> numbersOf(Sets const & sets)
{
    std::vector<unsigned int> numbers;
    for (Metadata::MetadataSet const * set : sets)
        numbers.push_back(numberOf(*set));
    return numbers;
}

}}
