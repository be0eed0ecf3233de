#pragma once

#include "Metadata/Listeners/ReferenceEntry.h"
#include "Metadata/PartitionMetadataListener.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"
#include "Types/UUID.h"

namespace Vantry { namespace Metadata {

class PartitionMetadata;

namespace Listeners {

/// Knows which elements refer to a set, and keeps sets from being removed
/// while something refers to them.
///
/// It hears of references once it is a listener of its partition, and of
/// those that were there before by a replay. References are kept by
/// identifier, so the set need not be there.
class VANTRY_EXPORT MetadataSetRelationshipManager : public PartitionMetadataListener
{
public:
    using Elements = ReferenceEntry::Elements;

    /// \param partitionMetadata  whose listener it will be, and who outlives
    ///                           it
    explicit MetadataSetRelationshipManager(PartitionMetadata * partitionMetadata);
    MetadataSetRelationshipManager(MetadataSetRelationshipManager const &) = delete;
    MetadataSetRelationshipManager & operator=(MetadataSetRelationshipManager const &) = delete;
    ~MetadataSetRelationshipManager() override;

    /// Whether nothing refers to the set.
    bool canDeleteMetadataSet(MetadataSet const * set) const;

    /// The set that owns this one, null when none does. Of several the one
    /// whose element has the lowest address.
    MetadataSet * parentSet(MetadataSet * set);
    MetadataSet const * parentSet(MetadataSet const * set) const;

    /// Add the elements that refer strongly, or weakly, to the set; return how
    /// many there are in `elements` then.
    unsigned int metadataSetStrongRefs(MetadataSet const * set, Elements & elements) const;
    unsigned int metadataSetWeakRefs(MetadataSet const * set, Elements & elements) const;

    /// Whether the removal of a set to which something refers is refused with
    /// Exceptions::OperationNotAllowed. It is until told otherwise.
    void enforceReferentialIntegrity(bool enforce);

    /// Removes a set, the references to it, and all that it owned and nothing
    /// else owns.
    ///
    /// \return whether the set was in the partition
    /// \throws Exceptions::InvalidFormat when one of them owns itself by way
    ///         of others; nothing is removed.
    /// \throws Exceptions::InvalidChange when the schema doesn't let a
    ///         reference go; that set and those behind it stay.
    bool cascadeDelete(MetadataSet * set);

protected:
    using UUID2References = Templates::map<Types::UUID, Templates::SharedPtr<ReferenceEntry>>;
    using References2UUID = Templates::multimap<Element *, Types::UUID>;

    /// What refers to each identifier. One that nothing refers to is not
    /// there.
    UUID2References & uuid2ReferencesMap();

    /// The same in the other direction.
    References2UUID & references2UUIDMap();

private:
    void metadataSetKey(KLV::Key & key) override;
    void createdMetadataSet(MetadataSet * set) override;
    void removedMetadataSet(MetadataSet * set) override;
    void addedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                      Types::BaseType const & newValue) override;
    void updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                        Types::SimpleDataType const & oldValue, Types::SimpleDataType const & newValue) override;
    void updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                        Types::Collection const & oldValue, Types::Collection const & newValue) override;
    void updatedElementCollection(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                                  Types::Collection const & collection, unsigned int index,
                                  Types::SimpleDataType const * item) override;
    void removedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                        Types::BaseType const & oldValue) override;

    class Impl;
    Impl * impl_;
};

}
}}
