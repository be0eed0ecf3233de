#include "Failure.h"

namespace Vantry { namespace Application {

Failure::Failure(ExitStatus status, std::string const & file, std::string const & problem) :
    std::runtime_error(file + ": " + problem), status_(status)
{
}

}}
