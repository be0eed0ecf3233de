#pragma once

#include "DataIO/SliceReader.h"

namespace Vantry { namespace DataIO {

/// Reads fields of bits, the most significant bit of each byte first.
///
/// Bytes of which bits were taken are kept until `readCache` or
/// `releaseCache`. All other reading goes on behind them, by whole bytes.
class VANTRY_EXPORT BitSliceReader : public SliceReader
{
public:
    /// \throws Exceptions::BadAlloc.
    explicit BitSliceReader(Templates::SharedPtr<SliceSource> source);
    ~BitSliceReader() override;

    /// Moves the bytes of which bits were taken to the end of `chain`. The
    /// next bit comes from the byte behind them.
    virtual void readCache(Chain & chain);

    /// Drops the bytes of which bits were taken. The next bit comes from the
    /// byte behind them.
    virtual void releaseCache();

    /// Whether a byte, though it belongs to the stream, carries no bits. No
    /// byte is one unless a derived class says so.
    virtual bool isStuffingByte(unsigned char byte);

    /// Takes `count` bits and packs them from the most significant bit of
    /// `destination[0]` on; unused bits of the last byte are 0.
    ///
    /// \throws Exceptions::NotEnoughData; the bytes that were there have been
    ///         taken then, and the content of `destination` is open.
    void readBits(unsigned int count, unsigned char * destination);

    /// Takes `count` bits and returns how many these were: all.
    ///
    /// \throws Exceptions::NotEnoughData; the bytes that were there have been
    ///         taken then.
    unsigned int skipBits(unsigned int count);

private:
    void takeBytes(UInt64 count, unsigned char * destination);

    class Impl;
    Impl * impl_;
};

}}
