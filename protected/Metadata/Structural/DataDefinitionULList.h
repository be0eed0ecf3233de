#pragma once

#define VANTRY_DATA_DEFINITION_ULS(ROW)                                         \
    ROW(picture, "06 0E 2B 34 04 01 01 01 01 03 02 02 01 00 00 00")             \
    ROW(audio, "06 0E 2B 34 04 01 01 01 01 03 02 02 02 00 00 00")               \
    ROW(data, "06 0E 2B 34 04 01 01 01 01 03 02 02 03 00 00 00")                \
    ROW(descriptiveMetadata, "06 0E 2B 34 04 01 01 01 01 03 02 01 10 00 00 00") \
    ROW(timecode12MInactive, "06 0E 2B 34 04 01 01 01 01 03 02 01 01 00 00 00") \
    ROW(timecode12MActive, "06 0E 2B 34 04 01 01 01 01 03 02 01 02 00 00 00")   \
    ROW(timecode309M, "06 0E 2B 34 04 01 01 01 01 03 02 01 02 00 00 00")        \
    ROW(auxiliaryData, "06 0E 2B 34 04 01 01 05 01 03 02 03 01 00 00 00")       \
    ROW(parsedText, "06 0E 2B 34 04 01 01 07 01 03 02 03 02 00 00 00")
