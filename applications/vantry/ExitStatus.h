#pragma once

namespace Vantry { namespace Application {

/// How the program ends. Each but DONE comes with one line on standard error.
enum class ExitStatus
{
    DONE = 0,

    /// Nothing was delivered.
    FAILED = 1,

    /// The command line can't be understood, or asks for what doesn't apply.
    WRONG_USAGE = 2,

    /// The input is damaged; what could be read was delivered.
    DAMAGED_INPUT = 3
};

}}
