#include "Types/Timestamp.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"

namespace Vantry { namespace Types {

namespace {

unsigned char checkedQuarter(unsigned short milliSecond)
{
    VANTRY_CHECK(milliSecond < 1000, InvalidValue, "Invalid Time: Millisecond must be smaller than 1000");
    return static_cast<unsigned char>(milliSecond / 4);
}

}

Timestamp::Timestamp(unsigned short const & year, unsigned char const & month, unsigned char const & day,
                     unsigned char const & hour, unsigned char const & minute, unsigned char const & second,
                     unsigned short const & milliSecond) :
    Timestamp(year, month, day, hour, minute, second, checkedQuarter(milliSecond))
{
}

Timestamp::Timestamp(unsigned short const & year, unsigned char const & month, unsigned char const & day,
                     unsigned char const & hour, unsigned char const & minute, unsigned char const & second,
                     unsigned char const & mSec4)
{
    VANTRY_CHECK(mSec4 < 250, InvalidValue, "Invalid Time: Millisecond must be smaller than 250");
    VANTRY_CHECK(second < 60, InvalidValue, "Invalid Time: Second must be smaller than 60");
    VANTRY_CHECK(minute < 60, InvalidValue, "Invalid Time: Minute must be smaller than 60");
    VANTRY_CHECK(hour < 24, InvalidValue, "Invalid Time: Hour must be smaller than 60");
    VANTRY_CHECK(day < 32, InvalidValue, "Invalid Date: Day must be smaller than 32");
    VANTRY_CHECK(month < 13, InvalidValue, "Invalid Date: Month must be smaller than 13");

    number<Platform::UInt16>(0, year);
    unsigned char const fields[] = {month, day, hour, minute, second, mSec4};
    std::memcpy(bytes() + 2, fields, sizeof(fields));
}

template class Concrete<Timestamp, FixedSizeType<SimpleDataType, 8>>;

}}
