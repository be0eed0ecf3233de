#pragma once

#define VANTRY_INDEX_TABLE_ULS(ROW)                                            \
    ROW(indexEditRate, "06 0E 2B 34 01 01 01 05 05 30 04 06 00 00 00 00")      \
    ROW(indexStartPosition, "06 0E 2B 34 01 01 01 05 07 02 01 03 01 0A 00 00") \
    ROW(indexDuration, "06 0E 2B 34 01 01 01 05 07 02 02 01 01 02 00 00")      \
    ROW(editUnitByteCount, "06 0E 2B 34 01 01 01 04 04 06 02 01 00 00 00 00")  \
    ROW(sliceCount, "06 0E 2B 34 01 01 01 04 04 04 04 01 01 00 00 00")         \
    ROW(positionTableCount, "06 0E 2B 34 01 01 01 05 04 04 04 01 07 00 00 00") \
    ROW(deltaEntryArray, "06 0E 2B 34 01 01 01 05 04 04 04 01 06 00 00 00")    \
    ROW(indexEntryArray, "06 0E 2B 34 01 01 01 05 04 04 04 02 05 00 00 00")
