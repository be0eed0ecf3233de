#pragma once

#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"

namespace Vantry { namespace Types {

/// A date and time to 4 ms: 8 bytes. A field of 0 in the date, or all of them,
/// means that it isn't known.
///
/// Wire form: year (2 bytes), month, day, hour, minute, second, milliseconds
/// divided by 4. Times compare from the earlier to the later.
class VANTRY_EXPORT Timestamp : public Concrete<Timestamp, FixedSizeType<SimpleDataType, 8>>
{
public:
    /// Reads the time, whatever its fields hold.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit Timestamp(KLV::Value & source) : Concrete(source) {}

    /// Month up to 12, day up to 31, hour up to 23, minute and second up to
    /// 59, millisecond up to 999, of which the part below 4 ms is lost. Whether
    /// the month has that day is not looked at.
    ///
    /// \throws Exceptions::InvalidValue for a field out of range.
    Timestamp(unsigned short const & year, unsigned char const & month, unsigned char const & day,
              unsigned char const & hour, unsigned char const & minute, unsigned char const & second,
              unsigned short const & milliSecond);

    /// The same with milliseconds divided by 4, up to 249.
    ///
    /// \throws Exceptions::InvalidValue for a field out of range.
    Timestamp(unsigned short const & year, unsigned char const & month, unsigned char const & day,
              unsigned char const & hour, unsigned char const & minute, unsigned char const & second,
              unsigned char const & mSec4);

    unsigned short year() const noexcept { return number<Platform::UInt16>(0); }
    unsigned char month() const noexcept { return bytes()[2]; }
    unsigned char day() const noexcept { return bytes()[3]; }
    unsigned char hour() const noexcept { return bytes()[4]; }
    unsigned char minute() const noexcept { return bytes()[5]; }
    unsigned char second() const noexcept { return bytes()[6]; }

    /// Milliseconds divided by 4.
    unsigned char mSec4() const noexcept { return bytes()[7]; }

    /// A multiple of 4.
    unsigned short milliSecond() const noexcept { return static_cast<unsigned short>(mSec4() * 4); }
};

extern template class Concrete<Timestamp, FixedSizeType<SimpleDataType, 8>>;

}}
