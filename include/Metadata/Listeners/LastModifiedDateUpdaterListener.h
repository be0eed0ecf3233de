#pragma once

#include "Metadata/Listeners/NullCommitableListener.h"

namespace Vantry { namespace Metadata { namespace Listeners {

/// At each commit, dates the packages and the Preface whose sets have changed:
/// the changed sets themselves and all that own them, directly or not, get one
/// time. A new set has changed when a value was set in it.
class VANTRY_EXPORT LastModifiedDateUpdaterListener : public NullCommitableListener
{
public:
    LastModifiedDateUpdaterListener();
    LastModifiedDateUpdaterListener(LastModifiedDateUpdaterListener const &) = delete;
    LastModifiedDateUpdaterListener & operator=(LastModifiedDateUpdaterListener const &) = delete;
    ~LastModifiedDateUpdaterListener() override;

    /// \throws Exceptions::NotFound when a package or the Preface has no such
    ///         attribute in the schema.
    /// \throws Exceptions::OSError when the system has no time to tell.
    void commit() override;

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

}}}
