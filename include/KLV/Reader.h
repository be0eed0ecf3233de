#pragma once

#include "KLV/Key.h"
#include "KLV/Packet.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace DataIO {
class DataSource;
}

namespace KLV {

/// Finds the packets of a stream that may begin with a run-in or hold bytes
/// that are no packet.
///
/// The source is lent and outlives the reader; packets are read from the
/// position it has. A fill item is a packet like any other. After a failure
/// the source stands where the search or the reading stopped.
///
/// A search reads the source byte by byte, so small reads of it should be
/// cheap: a file wants a buffer.
///
/// Each thread has a peeked key of its own, but the source has one position:
/// two threads must not read it at once.
class VANTRY_EXPORT Reader
{
public:
    VANTRY_CLASS_ALLOCATION

    /// What a peek takes for a key.
    enum PEEK_KIND : int
    {
        /// Whatever starts with the bytes of a SMPTE key, 06 0E 2B 34.
        PEEK_SMPTE_KEY = 0,

        /// A SMPTE key of a category that packets have: 0 to 3, or 5.
        PEEK_PACKET_KEY = 1
    };

    explicit Reader(DataIO::DataSource & source);
    Reader(Reader const &) = delete;
    Reader & operator=(Reader const &) = delete;
    virtual ~Reader();

    DataIO::DataSource & source() const noexcept;

    /// The next packet, its value yet to be read. A key that this thread has
    /// peeked just before is taken, with nothing skipped.
    ///
    /// \param skipped         bytes that were passed over to find the key
    /// \param maxBytesToSkip  how many these may be; with 0 the key must
    ///                        stand where the source does
    /// \throws Exceptions::NotEnoughData when the source ends before the
    ///         value: at the end of a stream too.
    /// \throws Exceptions::KeyNotFound when more bytes would be skipped.
    /// \throws Exceptions::InvalidFormat for a length that can't be decoded.
    Templates::auto_ptr<Packet> nextKLV(UInt64 & skipped, UInt64 maxBytesToSkip);

    /// The key of the next packet. The source is left behind the key, where
    /// `nextKLV` on this thread goes on; moved elsewhere, it starts anew.
    ///
    /// \throws Exceptions::NotEnoughData, Exceptions::KeyNotFound as `nextKLV`.
    Key peekNextKey(UInt64 & skipped, UInt64 maxBytesToSkip);
    Key peekNextKey(UInt64 & skipped, PEEK_KIND kind, UInt64 maxBytesToSkip);

protected:
    /// Whether `bytes` start a packet whose key is no SMPTE key. To be
    /// overridden; here it is false.
    ///
    /// \param bytes  the bytes at the place under test
    /// \param size   how many they are: 5
    virtual bool isValidStartKey(unsigned char * bytes, UInt64 size);

private:
    class Impl;
    Impl * impl_;
};

}
}
