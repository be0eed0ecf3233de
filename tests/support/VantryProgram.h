#pragma once

#include "support/ScratchFolder.h"

#include <sys/wait.h>

namespace Vantry { namespace Tests {

/// How a run of the program ended.
struct Ended
{
    int status;
    std::string output;
    std::string errors;
};

/// Runs the built program by the shell, in the scratch folder.
///
/// \param arguments  as a shell reads them, with redirections at will
inline Ended runVantry(ScratchFolder const & scratch, std::string const & arguments)
{
    std::string const command =
        "cd '" + scratch.path().string() + "' && { '" VANTRY_PROGRAM "' " + arguments + "; } > .output 2> .errors";
    int const result = std::system(command.c_str());

    Bytes const output = readFile(scratch.path() / ".output");
    Bytes const errors = readFile(scratch.path() / ".errors");
    return {WEXITSTATUS(result), {output.begin(), output.end()}, {errors.begin(), errors.end()}};
}

}}
