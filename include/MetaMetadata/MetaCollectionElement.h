#pragma once

#include "MetaMetadata/MetaElement.h"

#include <limits>

namespace Vantry { namespace MetaMetadata {

/// An attribute with any number of values: an Array, whose order counts, or a
/// Batch.
class VANTRY_EXPORT MetaCollectionElement : public MetaElement
{
public:
    /// How many values there may be, both ends included.
    struct CollectionSizeLimits
    {
        CollectionSizeLimits() = default;
        CollectionSizeLimits(UInt32 least, UInt32 most) : minimum(least), maximum(most) {}

        UInt32 minimum = 0;
        UInt32 maximum = std::numeric_limits<UInt32>::max();
    };

    ~MetaCollectionElement() override;

    virtual MetaCollectionElement & operator=(MetaCollectionElement const & other);

    /// The type of each value.
    Types::Identifiers::Identifier dataSubType() const noexcept { return dataSubType_; }
    CollectionSizeLimits const & collectionSizeLimits() const noexcept { return limits_; }

protected:
    /// \throws Exceptions::InvalidMetaElement for a type that is neither
    ///         Array nor Batch, and for a maximum below the minimum.
    MetaCollectionElement(Types::UniversalLabel const & label, CollectionSizeLimits const & limits,
                          Types::Identifiers::Identifier dataType, Types::Identifiers::Identifier dataSubType);
    MetaCollectionElement(MetaCollectionElement const &) = default;

private:
    Types::Identifiers::Identifier dataSubType_;
    CollectionSizeLimits limits_;
};

}}
