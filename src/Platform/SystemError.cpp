#include "Platform/SystemError.h"

#include "Platform/Text.h"

#include <cerrno>
#include <system_error>

namespace Vantry { namespace Platform {

Templates::wstring lastErrorMessage()
{
    return stringToWstring(std::system_category().message(errno).c_str());
}

}}
