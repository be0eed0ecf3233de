#pragma once

#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"

// Some C libraries have macros of these names for device numbers.
#undef major
#undef minor

namespace Vantry { namespace Types {

/// The version of a product: major, minor, patch and build number and the kind
/// of release, 2 bytes each. Versions compare in this order.
class VANTRY_EXPORT ProductVersion : public Concrete<ProductVersion, FixedSizeType<SimpleDataType, 10>>
{
public:
    /// Kind of a release (SMPTE 377M). A file may hold other numbers.
    enum ReleaseVersion : unsigned short
    {
        RELEASE_UNKNOWN = 0,
        RELEASE_FINAL = 1,
        RELEASE_DEVELOPMENT = 2,
        RELEASE_PATCHED = 3,
        RELEASE_BETA = 4,
        RELEASE_PRIVATE = 5
    };

    /// Reads the version.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit ProductVersion(KLV::Value & source) : Concrete(source) {}

    ProductVersion(unsigned short const & major, unsigned short const & minor, unsigned short const & patch,
                   unsigned short const & build, ReleaseVersion releaseVersion) noexcept;

    unsigned short major() const noexcept { return number<Platform::UInt16>(0); }
    unsigned short minor() const noexcept { return number<Platform::UInt16>(2); }
    unsigned short patch() const noexcept { return number<Platform::UInt16>(4); }
    unsigned short build() const noexcept { return number<Platform::UInt16>(6); }
    ReleaseVersion releaseVersion() const noexcept { return ReleaseVersion(number<Platform::UInt16>(8)); }
};

extern template class Concrete<ProductVersion, FixedSizeType<SimpleDataType, 10>>;

}}
