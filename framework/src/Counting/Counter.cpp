#include "Quorvan/Framework/Counting/Counter.h"

#include <map>
#include <mutex>
#include <string>

namespace Quorvan { namespace Framework { namespace Counting {

Counter & Counter::counter(char const * name)
{
    // Never destroyed, since references to counters stay valid to the end of
    // the process.
    static std::mutex * const mutex = new std::mutex;
    static auto * const counters = new std::map<std::string, Counter, std::less<>>;

    std::lock_guard<std::mutex> const lock(*mutex);
    auto const found = counters->find(name);
    return found != counters->end() ? found->second : (*counters)[name];
}

int Counter::next()
{
    return value_.fetch_add(1, std::memory_order_relaxed);
}

void Counter::reset()
{
    value_.store(0, std::memory_order_relaxed);
}

}}}
