#pragma once

#include <csignal>

namespace Vantry { namespace Application {

/// While there is one, Ctrl-C and the like don't end the program at once, so
/// that half-written output can be removed.
class Interruption
{
public:
    Interruption();
    Interruption(Interruption const &) = delete;
    Interruption & operator=(Interruption const &) = delete;
    ~Interruption();

    /// Whether the user wants the job to end.
    static bool isWanted();

private:
    static constexpr int SIGNALS[] = {SIGINT, SIGTERM, SIGHUP};
    static constexpr int COUNT = sizeof SIGNALS / sizeof *SIGNALS;

    struct sigaction before_[COUNT];
};

}}
