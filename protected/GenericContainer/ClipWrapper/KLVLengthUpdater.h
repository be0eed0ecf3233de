#pragma once

#include "DataIO/Slice.h"
#include "MXFIO/FutureUpdater.h"
#include "Templates/auto_ptr.h"

namespace Vantry { namespace GenericContainer { namespace ClipWrapper {

/// Writes the key of a clip again, with the length that it has come to.
class KLVLengthUpdater : public MXFIO::FutureUpdater
{
public:
    KLVLengthUpdater();
    ~KLVLengthUpdater() override;

    /// Takes key and length field.
    void slice(Templates::auto_ptr<DataIO::Slice> slice);

    /// Whether there is a length by now that hasn't been handed out.
    bool prepare() override;
    void patch(UInt64 offset, UInt64 & position, DataIO::Chain & chain) override;

private:
    Templates::auto_ptr<DataIO::Slice> slice_;
};

}}}
