#pragma once

#define VANTRY_WRAPPINGS(ROW) ROW(multipleWrapping, "06 0E 2B 34 04 01 01 03 0D 01 03 01 02 7F 01 00")
