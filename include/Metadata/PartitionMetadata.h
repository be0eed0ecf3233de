#pragma once

#include "KLV/Key.h"
#include "Metadata/MetadataSetOwner.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}
namespace KLV {
class Packet;
}
namespace Types {
class UUID;
}

namespace Metadata {

class DarkMetadataSet;
class PartitionMetadataListener;

namespace Listeners {
class MetadataIndexListener;
}

/// The header metadata of a partition (SMPTE 377M, 9): a primer pack, the sets
/// and what can't be read as sets.
///
///     primer pack
///     sets, in one of the orders below
///     dark sets
///
/// It owns its sets and tells its listeners of each change to them. In it are
/// no fill items; those are the writer's business. One thread at a time.
class VANTRY_EXPORT PartitionMetadata : public MetadataSetOwner
{
public:
    using MetadataSets = Templates::multimap<KLV::Key, MetadataSet *>;
    using const_iterator = MetadataSets::const_iterator;
    using DarkMetadataSets = Templates::list<DarkMetadataSet *>;
    using const_dark_iterator = DarkMetadataSets::const_iterator;

    /// How sets are ordered in a file. The tree is that of strong references
    /// below the Preface; sets outside it follow it.
    enum SerializationOrder
    {
        /// The Preface, then the others by key.
        PrefaceFirst = 0,
        /// The tree, each set ahead of what it owns and that ahead of its next
        /// sibling.
        ForwardDepthFirst = 1,
        /// The tree, the children of a set together and what they own behind
        /// them.
        ForwardBySiblings = 2,
        /// As ForwardDepthFirst, after packages and tracks are put in order:
        /// material packages and timecode tracks come first. This changes the
        /// metadata.
        NormalizedForward = 3,
        /// In the order of NormalizedForward, backwards, the sets of other
        /// kinds than structural metadata; the Preface; backwards, structural
        /// metadata. So each set follows those that it refers to.
        NormalizedReversed = 4,
        /// As NormalizedReversed, but sets with experimental keys come ahead
        /// of all, and forwards.
        NormalizedReversedExperimentalFirst = 5
    };

    /// Metadata without sets.
    ///
    /// \param partitionDictionary  the dictionary and the partition's primer
    ///                             pack
    explicit PartitionMetadata(Templates::auto_ptr<PartitionDictionary> partitionDictionary);
    PartitionMetadata(PartitionMetadata const &) = delete;
    PartitionMetadata & operator=(PartitionMetadata const &) = delete;

    /// Destroys the sets; listeners don't hear of it.
    ~PartitionMetadata() override;

    /// Takes a packet of a file in.
    ///
    /// Neither identifiers nor references are looked at.
    ///
    /// \return the set, which stays here: a DarkParsedGroup where the
    ///         dictionary doesn't know the key. Null when the packet has no
    ///         form that could be read without the dictionary; it is kept as a
    ///         DarkMetadataSet.
    /// \throws Exceptions::InvalidMetadataSet, Exceptions::InvalidLength as
    ///         MetadataSet::load; nothing is taken in.
    MetadataSet * load(KLV::Packet & packet);

    /// Adds a set that has nothing but a new instance identifier.
    ///
    /// \throws Exceptions::NotFound when the dictionary doesn't know the key
    ///         or gives the set no instance identifier.
    MetadataSet * createMetadataSet(KLV::Key const & key);

    /// Appends a packet that is written behind the sets.
    void addDarkMetadataSet(Templates::auto_ptr<DarkMetadataSet> set);

    /// Destroys the first set that has this instance identifier and tells
    /// whether there was one. References to it stay.
    bool removeMetadataSet(Types::UUID const & instanceUID);

    /// The sets with a key, in the order in which they came.
    Templates::vector<MetadataSet *> find(KLV::Key const & key) const;

    /// The sets in which an attribute that the index listener keeps has a
    /// value.
    Templates::vector<MetadataSet *> find(Types::UniversalLabel const & label,
                                          Types::SimpleDataType const & value) const override;

    /// Appends the sets that own a set, in the order of `begin`, each as often
    /// as it refers to it strongly; returns how many there were. Takes time in
    /// proportion to what it gives, unless references have changed since the
    /// last time.
    unsigned int parentSets(MetadataSet const * child, Templates::vector<MetadataSet *> & parents) const;
    unsigned int parentSets(MetadataSet const * child, Templates::vector<MetadataSet const *> & parents) const;

    /// The sets by key; those with the same key in the order in which they
    /// came.
    const_iterator begin() const noexcept;
    const_iterator end() const noexcept;

    /// Number of sets.
    unsigned int size() const noexcept;

    /// The dark sets, in the order in which they came.
    const_dark_iterator darkBegin() const noexcept;
    const_dark_iterator darkEnd() const noexcept;

    PartitionDictionary & partitionDictionary() override;
    PartitionDictionary const & partitionDictionary() const override;

    /// Adds a listener, once.
    ///
    /// \param replay  tell it of all sets and values that are there
    void addMetadataListener(Templates::SharedPtr<PartitionMetadataListener> listener, bool replay);

    /// Removes a listener if it is there.
    void removeMetadataListener(Templates::SharedPtr<PartitionMetadataListener> listener);

    /// Replaces the listener that `find` asks. It is told of all sets and
    /// values that are there, and from then on of each change, after the other
    /// listeners. Null gives a new DefaultMetadataIndexListener.
    void setMetadataIndexListener(Templates::SharedPtr<Listeners::MetadataIndexListener> listener);

    /// Enters all attributes that the sets can have in the primer pack, if
    /// sets have changed since the last time.
    ///
    /// \throws Exceptions::InvalidLocalTag when there are too many.
    void generateLocalTags();

    /// Bytes that `serialize` writes.
    ///
    /// \param withDark    with the dark sets and the invalid elements
    /// \param withPrimer  with the primer pack, which is completed first
    UInt64 serializedSize(bool withDark, bool withPrimer);

    /// Appends all sets in the order of the tree; returns how many are outside
    /// of it.
    ///
    /// \param withInvalid  look for references in invalid elements too
    /// \param depthFirst   as ForwardDepthFirst, else as ForwardBySiblings
    /// \throws Exceptions::NotFound when there is no Preface.
    /// \throws Exceptions::InvalidFormat when a set is owned twice, or by
    ///         itself.
    unsigned int calculateSerializationOrder(Templates::vector<MetadataSet const *> & order, bool withInvalid,
                                             bool depthFirst) const;

    /// `serialize` in the order ForwardDepthFirst or, unless `depthFirst`,
    /// ForwardBySiblings.
    void serializeForwardReferences(DataIO::DataSink & sink, bool withDark, bool depthFirst, bool withPrimer);

    /// Writes the metadata.
    ///
    /// \param withDark    with the dark sets and the invalid elements
    /// \param withPrimer  with the primer pack, which is completed first
    /// \throws Exceptions::InvalidFormat when an instance identifier is there
    ///         twice and, in orders that follow the tree, when a set is owned
    ///         twice or by itself.
    /// \throws Exceptions::InvalidStructure, for PrefaceFirst, when there isn't
    ///         one Preface.
    /// \throws Exceptions::NotFound, in orders that follow the tree, when
    ///         there is no Preface.
    /// \throws Exceptions::InvalidFormat, in normalized orders, when there is
    ///         no ContentStorage or no package in it.
    /// \throws Exceptions::LocalTagNotFound when the primer pack, which isn't
    ///         to be written, lacks an attribute.
    /// \throws Exceptions::IOError when the sink fails.
    void serialize(DataIO::DataSink & sink, bool withDark, SerializationOrder order, bool withPrimer);

    /// Append what the operation of this name gives for each set, in the order
    /// of `begin`.
    void openElements(Templates::vector<Element *> & elements) const;
    void incompleteElements(Templates::vector<Element *> & elements) const;
    void possiblyOpenElements(Templates::vector<Element *> & elements) const;
    void possiblyIncompleteElements(Templates::vector<Element *> & elements) const;
    void possiblyForbiddenElements(Templates::vector<Element *> & elements) const;
    void getSemanticsValidationElements(Templates::vector<Element *> & elements) const;

    /// What sets and elements tell is passed on to the listeners.
    void addedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                      Types::BaseType const & newValue) override;
    void updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                        Types::Collection const & oldValue, Types::Collection const & newValue) override;
    void updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                        Types::SimpleDataType const & oldValue, Types::SimpleDataType const & newValue) override;
    void updatedElementCollection(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                                  Types::Collection const & collection, unsigned int index,
                                  Types::SimpleDataType const * item) override;
    void removedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                        Types::BaseType const & oldValue) override;
    void metadataSetCloned(MetadataSet const & from, MetadataSet & to, bool deep) override;

private:
    class Impl;
    Impl * impl_;
};

}
}
