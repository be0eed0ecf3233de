#include "Types/Int16.h"
#include "Types/Int32.h"
#include "Types/Int64.h"
#include "Types/Int8.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt64.h"
#include "Types/UInt8.h"

namespace Vantry { namespace Types {

template class Concrete<Int8, SimpleTypes<Platform::Int8>>;
template class Concrete<Int16, SimpleTypes<Platform::Int16>>;
template class Concrete<Int32, SimpleTypes<Platform::Int32>>;
template class Concrete<Int64, SimpleTypes<Platform::Int64>>;
template class Concrete<UInt8, SimpleTypes<Platform::UInt8>>;
template class Concrete<UInt16, SimpleTypes<Platform::UInt16>>;
template class Concrete<UInt32, SimpleTypes<Platform::UInt32>>;
template class Concrete<UInt64, SimpleTypes<Platform::UInt64>>;

}}
