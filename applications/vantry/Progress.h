#pragma once

#include "Platform/Integers.h"

#include <chrono>

namespace Vantry { namespace Application {

/// A bar on standard error, where that is a terminal, that shows how far a job
/// is. It goes with the object.
class Progress
{
public:
    /// \param total  what counts as all
    /// \param quiet  show nothing
    Progress(UInt64 total, bool quiet);
    Progress(Progress const &) = delete;
    Progress & operator=(Progress const &) = delete;
    ~Progress();

    /// To be called often.
    void show(UInt64 done);

private:
    UInt64 total_;
    bool isShown_;
    std::chrono::steady_clock::time_point next_;
};

}}
