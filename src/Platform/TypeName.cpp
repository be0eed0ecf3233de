#include "Platform/TypeName.h"

#include <cstdlib>
#include <memory>

#include <cxxabi.h>

namespace Vantry { namespace Platform {

Templates::string typeName(std::type_info const & type)
{
    int status = 0;
    std::unique_ptr<char, void (*)(void *)> const name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                       &std::free);
    return status == 0 && name != nullptr ? name.get() : type.name();
}

}}
