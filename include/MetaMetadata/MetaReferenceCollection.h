#pragma once

#include "MetaMetadata/MetaCollectionElement.h"
#include "MetaMetadata/MetaReferenceHolder.h"

namespace Vantry { namespace MetaMetadata {

/// An attribute that refers to any number of sets.
class VANTRY_EXPORT MetaReferenceCollection : public MetaCollectionElement, public MetaReferenceHolder
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \throws Exceptions::InvalidMetaElement for limits or types that don't
    ///         fit, see MetaCollectionElement; for a sub type that is neither
    ///         StrongReference nor WeakReference.
    MetaReferenceCollection(Types::UniversalLabel const & label, CollectionSizeLimits const & limits,
                            Keys const & allowed, Types::Identifiers::Identifier dataType,
                            Types::Identifiers::Identifier dataSubType);
    MetaReferenceCollection(MetaReferenceCollection const &) = default;
    MetaReferenceCollection & operator=(MetaReferenceCollection const & other);

    void accept(Visitors::NonConstMetaElementVisitor & visitor) override;
    void accept(Visitors::MetaElementVisitor & visitor) const override;
};

}}
