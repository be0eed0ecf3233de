#pragma once

#include "MetaMetadata/AbstractMetaAttribute.h"
#include "Types/LocalTag.h"

namespace Vantry { namespace MetaMetadata {

/// An attribute that could not be told, or whose value could not be read.
class VANTRY_EXPORT UnknownAttribute : public AbstractMetaAttribute
{
public:
    VANTRY_CLASS_ALLOCATION

    enum Reason
    {
        TagNotInPrimer = 0,           ///< the primer pack doesn't have the tag
        LabelNotInDictionary = 1,     ///< the dictionary doesn't have the tag's label
        StaticTagNotInDictionary = 2, ///< the tag is static, and the dictionary doesn't have it
        InvalidTag = 3,               ///< the tag is 00.00
        LabelCollision = 4,           ///< the primer gives a static tag another label
        InvalidValue = 5              ///< the value doesn't have the length of its type
    };

    UnknownAttribute(Types::LocalTag const & localTag, Reason reason) : localTag_(localTag), reason_(reason) {}

    void accept(AbstractMetaAttributeVisitor & visitor) const override;

    /// The tag as it was read.
    Types::LocalTag const & localTag() const noexcept { return localTag_; }
    Reason reason() const noexcept { return reason_; }

private:
    Types::LocalTag localTag_;
    Reason reason_;
};

VANTRY_EXPORT bool operator==(UnknownAttribute const & left, UnknownAttribute const & right);

}}
