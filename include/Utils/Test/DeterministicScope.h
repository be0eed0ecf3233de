#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace Utils { namespace Test {

/// Makes what is written while it lives the same in each run and on each
/// machine: identifiers count up from the start, all dates are 2003-01-01
/// 01:00:00, and the platform's name is "win32".
///
/// It sets environment variables of the process: one at a time, while no
/// other thread uses the environment.
class VANTRY_EXPORT DeterministicScope
{
public:
    VANTRY_CLASS_ALLOCATION

    DeterministicScope();
    DeterministicScope(DeterministicScope const &) = delete;
    DeterministicScope & operator=(DeterministicScope const &) = delete;

    /// Identifiers and dates are real again, and so is the platform's name.
    ~DeterministicScope();
};

}}}
