#pragma once

#include "Platform/Export.h"
#include "Types/FixedSizeUID.h"

namespace Vantry { namespace Types {

/// A universally unique identifier (RFC 4122): 16 bytes.
class VANTRY_EXPORT UUID : public Concrete<UUID, FixedSizeUID<UUID, 16>>
{
public:
    /// Copies 16 bytes.
    constexpr explicit UUID(unsigned char const * bytes) noexcept : Concrete(bytes) {}

    /// Reads 16 bytes.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit UUID(KLV::Value & source) : Concrete(source) {}

    /// Reads text: dotted bytes or RFC 4122, which is the native form.
    ///
    /// \throws Exceptions::InvalidFormat for another form.
    /// \throws Exceptions::InvalidLength, Exceptions::InvalidLabel when the
    ///         text doesn't follow its form.
    UUID(unsigned short const * text, StringRepresentationEncodingType encoding) : Concrete(text, encoding) {}
};

extern template class FixedSizeUID<UUID, 16>;
extern template class Concrete<UUID, FixedSizeUID<UUID, 16>>;

}}
