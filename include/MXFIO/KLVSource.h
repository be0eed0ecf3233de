#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace DataIO {
class Chain;
}

namespace MXFIO {

class FutureUpdater;

/// Gives the packets that fill a partition behind its pack, piece by piece.
class VANTRY_EXPORT KLVSource
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~KLVSource();

    /// Appends the next piece.
    ///
    /// \param complete  set to whether the piece ends a unit, so that a new
    ///                  partition may follow
    /// \param updater   set when bytes of this piece are to be written again
    ///                  later; the caller keeps it with the place of the piece
    /// \param duration  set to the seconds that the piece covers
    /// \return false once there will be nothing more
    virtual bool next(DataIO::Chain & chain, bool & complete, Templates::SharedPtr<FutureUpdater> & updater,
                      Templates::Rational<Int64> & duration) = 0;

    /// Whether nothing more will come.
    virtual bool done() const = 0;

    /// The grid that the pieces keep, in bytes.
    virtual unsigned int kagSize() const = 0;
};

}
}
