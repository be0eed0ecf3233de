#pragma once

#include "DataIO/Chain.h"

namespace Vantry { namespace DataIO {

/// What SyncWordFinder::find came to.
struct SyncResult
{
    VANTRY_CLASS_ALLOCATION

    bool found = false;

    /// The four bytes at the match, the first one lowest, whatever the mask.
    UInt32 word = 0;

    /// The bytes passed over, behind those that were there before.
    Chain skipped;
};

}}
