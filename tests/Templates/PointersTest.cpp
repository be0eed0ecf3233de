#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"

#include "Platform/Synchronization/Mutex.h"
#include "Platform/Synchronization/ScopedLock.h"

#include <gtest/gtest.h>

#include <thread>
#include <type_traits>
#include <vector>

using namespace Vantry;
using Templates::auto_ptr;
using Templates::SharedPtr;

namespace {

struct Base
{
    Base() { ++alive; }
    Base(Base const &) = delete;
    Base & operator=(Base const &) = delete;
    virtual ~Base() { --alive; }

    static int alive;
};

int Base::alive = 0;

struct Derived : Base
{
};

struct Other : Base
{
};

static_assert(!std::is_convertible<SharedPtr<Base>, SharedPtr<Derived>>::value, "no conversion downward");
static_assert(!std::is_convertible<auto_ptr<Base>, auto_ptr<Derived>>::value, "no conversion downward");

auto_ptr<Base> make()
{
    return auto_ptr<Derived>(new Derived);
}

}

TEST(AutoPtr, HandsItsObjectOn)
{
    {
        auto_ptr<Base> first = make();
        auto_ptr<Base> second(first);
        EXPECT_FALSE(first);
        EXPECT_EQ(Base::alive, 1);

        first = make();
        Base * const kept = first.get();
        second = first;
        EXPECT_EQ(second.get(), kept);
        EXPECT_EQ(Base::alive, 1) << "what was owned before is gone";

        auto_ptr<Base> & same = second;
        second = same;
        second.reset(kept);
        EXPECT_EQ(second.get(), kept);
        first.reset(second.release());
        EXPECT_EQ(Base::alive, 1);
    }
    EXPECT_EQ(Base::alive, 0);
}

TEST(SharedPtr, DeletesWithTheLastCopy)
{
    SharedPtr<Base> first = make();
    {
        SharedPtr<Base> second(first);
        SharedPtr<Derived> const derived = second.dynamicCast<Derived>();
        SharedPtr<Base> const base = derived;
        EXPECT_TRUE(base == first && derived == second);
        EXPECT_FALSE(second.dynamicCast<Other>());
        second.reset();
        EXPECT_EQ(Base::alive, 1);
        first = base;
        SharedPtr<Base> & same = first;
        first = same;
    }
    EXPECT_EQ(Base::alive, 1);
    first = SharedPtr<Base>();
    EXPECT_EQ(Base::alive, 0);

    Derived lent;
    {
        SharedPtr<Base> third(&lent, false);
        SharedPtr<Base> const fourth(third);
        third.reset();
    }
    EXPECT_EQ(Base::alive, 1) << "a lent object is never deleted";
}

TEST(SharedPtr, CountsOnSeveralThreads)
{
    SharedPtr<Base> object(new Derived);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back(
            [object]
            {
                for (int round = 0; round < 5000; ++round)
                    SharedPtr<Base>(object).reset();
            });
    object.reset();
    for (std::thread & thread : threads)
        thread.join();
    threads.clear();
    EXPECT_EQ(Base::alive, 0);
}

TEST(Mutex, IsReentrantAndExcludesOthers)
{
    using namespace Platform::Synchronization;

    Mutex mutex;
    int count = 0;
    auto const work = [&]
    {
        for (int round = 0; round < 5000; ++round)
        {
            ScopedLock const outer(mutex);
            ScopedLock const inner(mutex);
            ++count;
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(count, 10000);
}
