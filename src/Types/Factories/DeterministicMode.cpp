#include "Types/Factories/DeterministicMode.h"

#include "Platform/Environment.h"
#include "Platform/WideLiteral.h"
#include "Templates/Containers.h"

#include <Quorvan/Framework/Counting/Counter.h>

namespace Vantry { namespace Types { namespace Factories { namespace DeterministicMode {

namespace {

constexpr auto VARIABLE = Platform::wide(u"deterministic_uids");
constexpr auto ON = Platform::wide(u"true");
constexpr auto OFF = Platform::wide(u"false");

Quorvan::Framework::Counting::Counter & counter()
{
    return Quorvan::Framework::Counting::Counter::counter("Vantry_Deterministic_Counter");
}

}

bool isOn()
{
    Templates::wstring value;
    return Platform::getenv(VARIABLE, value) && value == ON.text;
}

void turn(bool on)
{
    Platform::setenv(VARIABLE, on ? ON.text : OFF.text);
    if (on)
        counter().reset();
}

unsigned int nextNumber()
{
    return static_cast<unsigned int>(counter().next());
}

}}}}
