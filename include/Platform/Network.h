#pragma once

#include "Platform/Export.h"
#include "Templates/Containers.h"

namespace Vantry { namespace Platform {

/// The hardware address of the first network adapter, as many bytes as the
/// system gives; empty when there is none.
VANTRY_EXPORT Templates::vector<unsigned char> firstMACAddress();

namespace Network {

/// Six bytes of the first network adapter's address: a longer one is cut, a
/// shorter one filled up with zeros. The adapter is asked only once in the
/// life of the process, and the bytes stay where they are.
VANTRY_EXPORT unsigned char const * macAddress();

}

}}
