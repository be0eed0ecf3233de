#include "Types/UMID32.h"

#include "Platform/Text.h"

#include <ostream>

namespace Vantry { namespace Types {

std::ostream & operator<<(std::ostream & out, UMID32 const & umid)
{
    return out << Platform::wstringToString(umid.toString(StringRepresentationEncodingType::DOTTED_BYTES).c_str());
}

}}
