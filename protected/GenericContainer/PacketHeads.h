#pragma once

#include "DataIO/BlockHolder.h"
#include "DataIO/Slice.h"
#include "KLV/Key.h"
#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace DataIO {
class Chain;
}

namespace GenericContainer {

/// Makes what lies around the values of elements: keys, length fields, fill.
///
/// Heads share blocks that are filled one after the other, and all fill shares
/// one block of zeros, so that a head costs a slice and no memory of its own.
class PacketHeads
{
public:
    PacketHeads();

    /// Key and length field.
    ///
    /// \param length      bytes of the value
    /// \param lengthSize  bytes of the length field, 2 to 9
    /// \throws Exceptions::InvalidLength when the length has no room in it.
    Templates::auto_ptr<DataIO::Slice> head(KLV::Key const & key, UInt64 length, unsigned char lengthSize);

    /// Appends a fill item.
    ///
    /// \param size        bytes of all of it
    /// \param lengthSize  bytes of the length field, 2 to 9
    /// \throws Exceptions::InvalidLength as `head`.
    void filler(UInt64 size, unsigned char lengthSize, DataIO::Chain & chain);

private:
    DataIO::BlockHolder heads_;
    UInt64 used_;
    DataIO::BlockHolder zeros_;
};

}
}
