#pragma once

#include "DataIO/SliceSource.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace DataIO {

class SliceSink;

/// Lets a stream pass and gives a sink all that was read or skipped. The
/// bytes are shared, not copied.
class VANTRY_EXPORT SliceSourceTee : public SliceSource
{
public:
    /// The sink is lent, and may be null.
    ///
    /// \throws Exceptions::BadAlloc.
    SliceSourceTee(Templates::SharedPtr<SliceSource> source, SliceSink * sink);
    SliceSourceTee(SliceSourceTee const &) = delete;
    SliceSourceTee & operator=(SliceSourceTee const &) = delete;
    ~SliceSourceTee() override;

    Templates::auto_ptr<Slice> read(UInt64 howMuch) override;
    UInt64 absoluteOffset() const override;
    bool endOfStream() const override;
    UInt64 skip(UInt64 howMuch) override;

private:
    class Impl;
    Impl * impl_;
};

}}
