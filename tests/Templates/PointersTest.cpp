#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"

#include "Platform/Synchronization/Mutex.h"
#include "Platform/Synchronization/ScopedLock.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

using namespace Vantry;
using Templates::auto_ptr;
using Templates::SharedPtr;
using Tests::onThreads;

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
        second.reset();
        EXPECT_EQ(Base::alive, 1);
        first = base;
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
    onThreads(4,
              [object](unsigned int)
              {
                  for (int round = 0; round < 5000; ++round)
                      SharedPtr<Base>(object).reset();
              });
    object.reset();
    EXPECT_EQ(Base::alive, 0);
}

TEST(Mutex, IsReentrantAndExcludesOthers)
{
    using namespace Platform::Synchronization;

    Mutex mutex;
    int count = 0;
    onThreads(2,
              [&](unsigned int)
              {
                  for (int round = 0; round < 5000; ++round)
                  {
                      ScopedLock const outer(mutex);
                      ScopedLock const inner(mutex);
                      ++count;
                  }
              });
    EXPECT_EQ(count, 10000);
}
