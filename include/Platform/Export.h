#pragma once

/// \file
/// What applications may link to. The library is built with hidden
/// visibility, so a class or function without this mark stays inside it.

#define VANTRY_EXPORT __attribute__((visibility("default")))
