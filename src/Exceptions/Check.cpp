#include "Exceptions/Check.h"

namespace Vantry { namespace Exceptions {

Templates::wstring checkMessage(char const * condition, char const * text)
{
    Templates::string message(condition);
    message += ": ";
    message += text;
    return Platform::stringToWstring(message.c_str());
}

Templates::wstring checkMessage(char const * condition, unsigned short const * text)
{
    Templates::wstring message = Platform::stringToWstring(condition);
    message += Platform::stringToWstring(": ");
    message += text;
    return message;
}

}}
