#pragma once

#include "ExitStatus.h"

#include <stdexcept>
#include <string>

namespace Vantry { namespace Application {

/// Ends a command: its status and its line on standard error.
class Failure : public std::runtime_error
{
public:
    /// \param status   anything but DONE
    /// \param file     the file that this is about, as the user named it
    /// \param problem  what is wrong, with the offset where that helps
    Failure(ExitStatus status, std::string const & file, std::string const & problem);

    ExitStatus status() const noexcept { return status_; }

private:
    ExitStatus status_;
};

}}
