#pragma once

#include <thread>
#include <vector>

namespace Vantry { namespace Tests {

/// Runs `work` on so many threads at once; each is told its number.
template <class Work>
void onThreads(unsigned int count, Work const & work)
{
    std::vector<std::thread> threads;
    for (unsigned int t = 0; t < count; ++t)
        threads.emplace_back(work, t);
    for (std::thread & thread : threads)
        thread.join();
}

}}
