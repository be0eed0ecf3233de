#pragma once

#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"

// Some C libraries have macros of these names for device numbers.
#undef major
#undef minor

namespace Vantry { namespace Types {

/// A version of two bytes, major and minor number. Versions compare in this
/// order.
class VANTRY_EXPORT VersionType : public Concrete<VersionType, FixedSizeType<SimpleDataType, 2>>
{
public:
    /// Reads the version.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit VersionType(KLV::Value & source) : Concrete(source) {}

    VersionType(unsigned char major, unsigned char minor) noexcept
    {
        bytes()[0] = major;
        bytes()[1] = minor;
    }

    unsigned char major() const noexcept { return bytes()[0]; }
    unsigned char minor() const noexcept { return bytes()[1]; }
};

extern template class Concrete<VersionType, FixedSizeType<SimpleDataType, 2>>;

}}
