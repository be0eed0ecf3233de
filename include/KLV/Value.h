#pragma once

#include "DataIO/BoundedDataSource.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace KLV {

/// The value of a packet: a window over the source that starts where the
/// source stands and is `totalLength` bytes long.
///
/// The source is lent and outlives the value. The window moves when the
/// source does, by whatever hand. The length is what the packet claims; the
/// source may end before.
class VANTRY_EXPORT Value : public DataIO::BoundedDataSource
{
public:
    Value(DataIO::DataSource & source, UInt64 length);
    Value(Value const &) = delete;
    Value & operator=(Value const &) = delete;

    /// Moves the source behind the value, as `discard`. A failure of the
    /// source is lost here: `discard` first where it matters.
    ~Value() override;

    /// The position of the source.
    UInt64 absoluteOffset() const override;

    /// Whether nothing is left of the window.
    bool endOfStream() const override;

    /// Reads up to `howMuch` bytes, none behind the window.
    ///
    /// \throws Exceptions::IOError when the source fails.
    UInt64 read(unsigned char * destination, UInt64 howMuch) override;

    /// Passes over up to `howMuch` bytes, none behind the window.
    ///
    /// \throws Exceptions::IOError when the source fails.
    UInt64 skip(UInt64 howMuch) override;

    /// Bytes from the position of the source to the end of the window; none
    /// where the source is behind it.
    UInt64 remaining() const override;

    /// Moves the source behind the value.
    ///
    /// \throws Exceptions::IOError when the source fails.
    void discard() override;

    /// Length of the whole value in bytes.
    UInt64 totalLength() const noexcept { return totalLength_; }

    /// Reads `howMuch` bytes, all or nothing.
    ///
    /// \throws Exceptions::InvalidLength "Invalid data size in Value" when
    ///         there are fewer. It carries those that there were.
    void readValue(unsigned char * destination, UInt64 howMuch);

private:
    DataIO::DataSource & source_;
    UInt64 totalLength_;
    UInt64 endOffset_;
};

}}
