#pragma once

#include "DataIO/SliceSource.h"
#include "Platform/Export.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace Essence { namespace MPEG {

/// Gives the payload of one elementary stream in PES packets, uncopied.
///
///     pack header, system header: passed over
///     00 00 01 id  length  [header]  payload      the stream: the first
///     00 00 01 id  length  [header]  payload      identifier from BCh on
///
/// Only packets of that one identifier count; all that lies between two of
/// them is passed over. A packet whose length is left open goes on up to the
/// next one; it comes piece by piece, however long it is.
///
/// The first call of any operation looks for the first packet, and throws
///
/// - Exceptions::InvalidFormat "Invalid PES stream. Could not find PES
///   startcode." in a stream without any, or "Skipped too many bytes to search
///   for the PES header." where it starts too late,
/// - Exceptions::IOError when the medium fails.
///
/// The next one goes on from there.
class VANTRY_EXPORT PESParser : public DataIO::SliceSource
{
public:
    /// Reads nothing yet.
    ///
    /// \param source         the packets
    /// \param maximumToSkip  bytes that may lie ahead of the first packet, and
    ///                       between one and the next
    /// \param keepSkipped    give those between packets too, where the packet
    ///                       that follows tells its length
    /// \throws Exceptions::BadAlloc.
    PESParser(Templates::SharedPtr<DataIO::SliceSource> source, UInt64 maximumToSkip, bool keepSkipped);
    PESParser(PESParser const &) = delete;
    PESParser & operator=(PESParser const &) = delete;
    ~PESParser() override;

    /// The next slice of payload as it comes, whatever `howMuch` says. An
    /// empty one where no packet starts within the maximum to skip, and a
    /// further call goes on from there; null where the source has ended.
    ///
    /// \throws Exceptions::InvalidFormat when a packet of open length doesn't
    ///         end within 2^36 bytes; Exceptions::IOError.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;

    /// How many bytes of payload were read and skipped.
    UInt64 absoluteOffset() const override;

    /// Whether the source has ended, and all payload was given.
    bool endOfStream() const override;

    /// Passes over payload. Failures as with `read`.
    UInt64 skip(UInt64 howMuch) override;

    /// The presentation time stamp of the packet that was read last, in ticks
    /// of 90 kHz; 0 when it has none.
    UInt64 pts() const;

private:
    class Impl;
    Impl * impl_;
};

}}}
