#pragma once

#include "Metadata/Listeners/CommitableListener.h"

namespace Vantry { namespace Metadata {

namespace Structural {
class Identification;
}

namespace Listeners {

/// At each commit, has the sets that were created or changed refer to the
/// Identification of this run of the application, by their generation
/// (SMPTE 377M, 9.5.2). It makes one for the first commit if it isn't given
/// one. What that says of the application is left to the caller.
///
/// A set whose schema has no generation is passed over.
class VANTRY_EXPORT GenerationUIDWriterListener : public CommitableListener
{
public:
    GenerationUIDWriterListener();
    GenerationUIDWriterListener(GenerationUIDWriterListener const &) = delete;
    GenerationUIDWriterListener & operator=(GenerationUIDWriterListener const &) = delete;
    ~GenerationUIDWriterListener() override;

    /// Forgets the Identification: the next commit makes a new one, as another
    /// run of the application would.
    void reset();

    /// Uses this Identification from now on.
    ///
    /// \param identification  one of the partition's sets; null as `reset`
    void setIdentification(Structural::Identification * identification);

    /// \throws Exceptions::NotFound when an Identification is to be made and
    ///         there is no Preface.
    void commit() override;

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

private:
    class Impl;
    Impl * impl_;
};

}
}}
