#pragma once

#include <string>

namespace Vantry { namespace Application {

/// What every command can be told.
struct CommonOptions
{
    /// The result is for a machine: JSON on standard output, nothing else.
    bool json = false;

    /// No progress bar.
    bool quiet = false;

    /// A schema file in place of the built-in one; empty for that.
    std::string dictionary;
};

}}
