#pragma once

/// What other modules may link to.
#define QUORVAN_EXPORT __attribute__((visibility("default")))
