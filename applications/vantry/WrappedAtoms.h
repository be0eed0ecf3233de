#pragma once

#include "WrappedFile.h"

namespace Vantry { namespace Application {

/// The files of an OP-Atom set: the material package of each knows the tracks
/// of all. A file alone needs nothing of that.
class WrappedAtoms
{
public:
    using Files = std::vector<std::unique_ptr<WrappedFile>>;

    /// \param files  lent
    explicit WrappedAtoms(Files const & files) : files_(files) {}

    /// Makes the material packages one; to be called when all files have been
    /// started, and none has been written.
    void aggregate() const;

    /// Has each file know how long the others are; to be called when all have
    /// been written.
    void shareDurations() const;

private:
    void number(WrappedFile & file) const;

    Files const & files_;
};

}}
