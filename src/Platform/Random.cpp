#include "Platform/Random.h"

#include <Quorvan/Framework/Framework.h>

namespace Vantry { namespace Platform {

unsigned char rand()
{
    return static_cast<unsigned char>(Quorvan::Framework::Framework::randomNumber());
}

void srand() {}

}}
