#include "Interruption.h"

namespace Vantry { namespace Application {

namespace {

std::sig_atomic_t volatile wanted = 0;

void want(int)
{
    wanted = 1;
}

}

Interruption::Interruption() : before_()
{
    wanted = 0;
    struct sigaction action = {};
    action.sa_handler = want;
    for (int i = 0; i < COUNT; ++i)
    {
        ::sigaction(SIGNALS[i], nullptr, &before_[i]);
        if (before_[i].sa_handler != SIG_IGN)
            ::sigaction(SIGNALS[i], &action, nullptr);
    }
}

Interruption::~Interruption()
{
    for (int i = 0; i < COUNT; ++i)
        ::sigaction(SIGNALS[i], &before_[i], nullptr);
}

bool Interruption::isWanted()
{
    return wanted != 0;
}

}}
