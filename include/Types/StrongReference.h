#pragma once

#include "Types/Concrete.h"
#include "Types/Reference.h"

namespace Vantry { namespace Types {

/// A reference to a metadata set that the referring set owns: the sets of a
/// file form a tree by these. The identifier of the set, 16 bytes.
class VANTRY_EXPORT StrongReference : public Concrete<StrongReference, Reference>
{
public:
    /// Reads dotted bytes: "00.01.02" and on.
    ///
    /// \throws Exceptions::InvalidLength, Exceptions::InvalidLabel when it is
    ///         none.
    explicit StrongReference(unsigned short const * text) : Concrete(text) {}

    /// Copies 16 bytes.
    explicit StrongReference(unsigned char const * bytes) : Concrete(bytes) {}

    /// Reads 16 bytes.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit StrongReference(KLV::Value & source) : Concrete(source) {}

    explicit StrongReference(UUID const & uuid) : Concrete(uuid) {}
};

extern template class Concrete<StrongReference, Reference>;

}}
