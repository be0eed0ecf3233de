#pragma once

#define VANTRY_DMS1_METADATA_KEYS(ROW)                                          \
    ROW(productionFramework, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 01 01 00") \
    ROW(clipFramework, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 01 02 00")       \
    ROW(sceneFramework, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 01 03 00")      \
    ROW(titles, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 10 01 00")              \
    ROW(dMS1Identification, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 11 01 00")  \
    ROW(groupRelationship, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 12 01 00")   \
    ROW(branding, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 13 01 00")            \
    ROW(event, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 14 01 00")               \
    ROW(publication, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 14 02 00")         \
    ROW(award, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 15 01 00")               \
    ROW(captionsDescription, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 16 01 00") \
    ROW(annotation, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 17 01 00")          \
    ROW(settingPeriod, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 17 02 00")       \
    ROW(scripting, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 17 03 00")           \
    ROW(classification, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 17 04 00")      \
    ROW(shot, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 17 05 00")                \
    ROW(keyPoint, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 17 06 00")            \
    ROW(participant, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 18 01 00")         \
    ROW(person, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 1A 02 00")              \
    ROW(organisation, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 1A 03 00")        \
    ROW(location, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 1A 04 00")            \
    ROW(address, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 1B 01 00")             \
    ROW(communications, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 1B 02 00")      \
    ROW(contract, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 1C 01 00")            \
    ROW(rights, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 1C 02 00")              \
    ROW(pictureFormat, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 1D 01 00")       \
    ROW(deviceParameters, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 1E 01 00")    \
    ROW(nameValue, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 1F 01 00")           \
    ROW(processing, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 20 01 00")          \
    ROW(project, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 20 02 00")             \
    ROW(contactsList, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 19 01 00")        \
    ROW(cueWords, "06 0E 2B 34 02 53 01 01 0D 01 04 01 01 17 08 00")
