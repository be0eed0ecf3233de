#include "GenericContainer/SequentialTimeCode.h"

namespace Vantry { namespace GenericContainer {

SequentialTimeCode::SequentialTimeCode(Utils::TimeCode const & start) : SequentialTimeCodeCommon(start) {}

Utils::TimeCode SequentialTimeCode::nextTimeCode()
{
    return nextTimeCodeCommon();
}

SequentialTimeCodeExtended::SequentialTimeCodeExtended(Utils::TimeCodeExtended const & start) :
    SequentialTimeCodeCommon(start)
{
}

Utils::TimeCode SequentialTimeCodeExtended::nextTimeCode()
{
    return nextTimeCodeCommon();
}

Utils::TimeCodeExtended SequentialTimeCodeExtended::nextTimeCodeExtended()
{
    return nextTimeCodeCommon();
}

}}
