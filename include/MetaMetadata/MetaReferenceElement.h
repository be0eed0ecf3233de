#pragma once

#include "MetaMetadata/MetaElement.h"
#include "MetaMetadata/MetaReferenceHolder.h"

namespace Vantry { namespace MetaMetadata {

/// An attribute that refers to one set.
class VANTRY_EXPORT MetaReferenceElement : public MetaElement, public MetaReferenceHolder
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \throws Exceptions::InvalidMetaElement unless the type is
    ///         StrongReference or WeakReference.
    MetaReferenceElement(Types::UniversalLabel const & label, Keys const & allowed,
                         Types::Identifiers::Identifier dataType);
    MetaReferenceElement(MetaReferenceElement const &) = default;
    MetaReferenceElement & operator=(MetaReferenceElement const & other);

    void accept(Visitors::NonConstMetaElementVisitor & visitor) override;
    void accept(Visitors::MetaElementVisitor & visitor) const override;
};

/// As for any MetaElement; without this the bases would both have a claim.
inline bool operator==(MetaReferenceElement const & left, MetaReferenceElement const & right)
{
    return static_cast<MetaElement const &>(left) == static_cast<MetaElement const &>(right);
}

}}
