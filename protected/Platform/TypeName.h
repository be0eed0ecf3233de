#pragma once

#include "Templates/Containers.h"

#include <typeinfo>

namespace Vantry { namespace Platform {

/// The name of a type as a programmer writes it.
Templates::string typeName(std::type_info const & type);

}}
