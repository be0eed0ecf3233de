#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry {
namespace DataIO {
class Chain;
}

namespace MXFIO {

/// What a source leaves behind to be written into the file later, over bytes
/// that it couldn't know when it gave them, such as the length of a clip.
///
/// The source goes on filling it in; once the essence has ended, both
/// operations are called, in this order.
class VANTRY_EXPORT FutureUpdater
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~FutureUpdater();

    /// Makes the bytes ready; false when there is nothing to write.
    virtual bool prepare() = 0;

    /// Gives the bytes.
    ///
    /// \param offset    where in the sink the piece went with which the source
    ///                  gave the updater
    /// \param position  set to where the bytes belong in the sink
    /// \param chain     gets the bytes
    virtual void patch(UInt64 offset, UInt64 & position, DataIO::Chain & chain) = 0;

protected:
    FutureUpdater() = default;
    FutureUpdater(FutureUpdater const &) = default;
    FutureUpdater & operator=(FutureUpdater const &) = default;
};

}
}
