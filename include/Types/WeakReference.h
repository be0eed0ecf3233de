#pragma once

#include "Types/Concrete.h"
#include "Types/Reference.h"

namespace Vantry { namespace Types {

/// A reference to a metadata set that stands elsewhere in the tree. The
/// identifier of the set, 16 bytes.
class VANTRY_EXPORT WeakReference : public Concrete<WeakReference, Reference>
{
public:
    /// Reads dotted bytes: "00.01.02" and on.
    ///
    /// \throws Exceptions::InvalidLength, Exceptions::InvalidLabel when it is
    ///         none.
    explicit WeakReference(unsigned short const * text) : Concrete(text) {}

    /// Copies 16 bytes.
    explicit WeakReference(unsigned char const * bytes) : Concrete(bytes) {}

    /// Reads 16 bytes.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit WeakReference(KLV::Value & source) : Concrete(source) {}

    explicit WeakReference(UUID const & uuid) : Concrete(uuid) {}
};

extern template class Concrete<WeakReference, Reference>;

}}
