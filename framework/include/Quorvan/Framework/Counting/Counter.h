#pragma once

#include "Quorvan/Framework/Export.h"

#include <atomic>

namespace Quorvan { namespace Framework { namespace Counting {

/// A counter that the whole process knows by its name. Any thread may use it.
class QUORVAN_EXPORT Counter
{
public:
    Counter() = default;
    Counter(Counter const &) = delete;
    Counter & operator=(Counter const &) = delete;

    /// The counter of this name, made on first use. It lives as long as the
    /// process.
    ///
    /// \throws std::bad_alloc.
    static Counter & counter(char const * name);

    /// The next value; the first after a start or a reset is 0.
    int next();

    void reset();

private:
    std::atomic<int> value_{0};
};

}}}
