#include "Quorvan/Framework/Framework.h"

#include <pthread.h>
#include <sys/random.h>

#include <array>
#include <atomic>
#include <cstddef>

namespace Quorvan { namespace Framework {

namespace {

// Counts the forks on the way to this process: a child must not go on with
// the numbers that its parent has in store.
std::atomic<unsigned int> forks{0};

// One system call serves many numbers: identifiers are made by the thousand.
class EntropyPool
{
public:
    unsigned short next()
    {
        unsigned int const now = forks.load(std::memory_order_relaxed);
        if (used_ == numbers_.size() || forks_ != now)
            refill(now);
        return numbers_[used_++];
    }

private:
    void refill(unsigned int now)
    {
        auto * const bytes = reinterpret_cast<unsigned char *>(numbers_.data());
        std::size_t const size = sizeof(numbers_);

        // Short answers come when a signal interrupts the call.
        for (std::size_t got = 0; got < size;)
        {
            ssize_t const more = ::getrandom(bytes + got, size - got, 0);
            if (more > 0)
                got += static_cast<std::size_t>(more);
        }
        used_ = 0;
        forks_ = now;
    }

    std::array<unsigned short, 128> numbers_{};
    std::size_t used_ = std::tuple_size<decltype(numbers_)>::value;
    unsigned int forks_ = 0;
};

}

unsigned short Framework::randomNumber()
{
    static int const registered = ::pthread_atfork(nullptr, nullptr, [] { ++forks; });
    static_cast<void>(registered);

    // A pool for each thread, so that no lock is needed.
    static thread_local EntropyPool pool;
    return pool.next();
}

}}
