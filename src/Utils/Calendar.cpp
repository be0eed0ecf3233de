#include "Utils/Calendar.h"

#include "Platform/Integers.h"
#include "Platform/Time.h"
#include "Utils/ModifiedJulianDate.h"

#include <iterator>

namespace Vantry { namespace Utils { namespace Calendar {

namespace {

unsigned char const UNKNOWN_ZONE = 57;

// By half hours. West of UTC a code reads in hexadecimal as the hours, or has
// a letter for half an hour more.
unsigned char const ZONES_WEST[] = {0,  10, 1,  11, 2,  12, 3,  13, 4,  14, 5,  15, 6,
                                    26, 7,  27, 8,  28, 9,  29, 16, 30, 17, 31, 18};
unsigned char const ZONES_EAST[] = {0,  63, 37, 62, 36, 61, 35, 60, 34, 59, 33, 58,           32, 47,
                                    25, 46, 24, 45, 23, 44, 22, 43, 21, 42, 20, UNKNOWN_ZONE, 19};

// The one zone off the half hours: 12 hours and 45 minutes east.
Int32 const CHATHAM_ISLANDS = -765;
unsigned char const CHATHAM_ISLANDS_ZONE = 50;

template <std::size_t N>
unsigned char zoneAt(unsigned char const (&zones)[N], Int32 minutes)
{
    bool const hasZone = minutes % 30 == 0 && minutes / 30 < static_cast<Int32>(N);
    return hasZone ? zones[minutes / 30] : UNKNOWN_ZONE;
}

}

unsigned int getModifiedJulianDate()
{
    return modifiedJulianDate(Platform::utctime());
}

unsigned char getTimeZone()
{
    Int32 const minutesWest = Platform::getTimezone();
    if (minutesWest == CHATHAM_ISLANDS)
        return CHATHAM_ISLANDS_ZONE;
    return minutesWest < 0 ? zoneAt(ZONES_EAST, -minutesWest) : zoneAt(ZONES_WEST, minutesWest);
}

}}}
