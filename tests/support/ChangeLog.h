#pragma once

#include "Exceptions/OperationNotAllowed.h"
#include "Metadata/Listeners/NullMetadataListener.h"
#include "Types/Collection.h"
#include "support/Partition.h"

namespace Vantry { namespace Tests {

/// Writes down what it hears of a partition: what happened, and the number of
/// the set or the last byte of the attribute's label.
class ChangeLog : public Metadata::Listeners::NullMetadataListener
{
public:
    void metadataSetKey(KLV::Key & key) override
    {
        if (key == strangeKey())
            key = nodeKey();
    }

    void createdMetadataSet(Metadata::MetadataSet * set) override
    {
        note("created", set->instanceUID() != nullptr ? numberOf(*set) : 0);
    }

    void removedMetadataSet(Metadata::MetadataSet * set) override { note("leaves", numberOf(*set)); }

    void addedElement(Metadata::MetadataSet &, MetaMetadata::MetaElement const *, Metadata::Element & element,
                      Types::BaseType const &) override
    {
        note("added", element.label()[15]);
    }

    void updatedElement(Metadata::MetadataSet &, MetaMetadata::MetaElement const *, Metadata::Element & element,
                        Types::Collection const &, Types::Collection const &) override
    {
        note("updated all of", element.label()[15]);
    }

    void updatedElement(Metadata::MetadataSet &, MetaMetadata::MetaElement const *, Metadata::Element & element,
                        Types::SimpleDataType const &, Types::SimpleDataType const &) override
    {
        note("updated", element.label()[15]);
    }

    void updatedElementCollection(Metadata::MetadataSet &, MetaMetadata::MetaElement const *,
                                  Metadata::Element & element, Types::Collection const & collection, unsigned int index,
                                  Types::SimpleDataType const * item) override
    {
        note((item != nullptr ? "new " : "no ") + std::to_string(index) + " among " +
                 std::to_string(collection.size()) + " of",
             element.label()[15]);
    }

    void removedElement(Metadata::MetadataSet &, MetaMetadata::MetaElement const *, Metadata::Element & element,
                        Types::BaseType const &) override
    {
        note("removed", element.label()[15]);
    }

    std::vector<std::string> take() { return std::exchange(log_, {}); }

    /// Whether it throws at all that it hears.
    bool refuses = false;

    /// Leaves this one's table at the next change.
    Metadata::PartitionMetadata * leaves = nullptr;

private:
    void note(std::string const & what, unsigned int number)
    {
        log_.push_back(what + ' ' + std::to_string(number));
        if (leaves != nullptr)
            leaves->removeMetadataListener(Templates::SharedPtr<Metadata::PartitionMetadataListener>(this, false));
        if (refuses)
            throw Exceptions::OperationNotAllowed("refused", __FILE__, __LINE__);
    }

    std::vector<std::string> log_;
};

}}
