#pragma once

#include "KLV/Key.h"

namespace Vantry { namespace MXFIO {

/// Whether a packet with this key belongs to the element. The registry version
/// doesn't matter, nor the bits in which the registered and some makers' own
/// element keys differ, nor the number of elements in the item.
inline bool isKeyOf(KLV::Key const & element, KLV::Key const & key)
{
    unsigned char const MASK[] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00,
                                  0xFC, 0xF8, 0xFF, 0xFF, 0xFF, 0x00, 0xFF, 0xFF};

    for (int i = 0; i < static_cast<int>(sizeof MASK); ++i)
        if (((element[i] ^ key[i]) & MASK[i]) != 0)
            return false;
    return true;
}

}}
