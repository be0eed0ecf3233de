#include <Quorvan/Framework/Counting/Counter.h>
#include <Quorvan/Framework/Framework.h>
#include <Quorvan/Framework/Management/IRegisteredObject.h>
#include <Quorvan/Framework/Management/MemoryManager.h>

#include "support/Threads.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

using Quorvan::Framework::Framework;
using Quorvan::Framework::Counting::Counter;
using Quorvan::Framework::Management::IRegisteredObject;
using Quorvan::Framework::Management::MemoryManager;

namespace {

struct Object : IRegisteredObject
{
    Object() { ++alive; }
    Object(Object const &) = delete;
    Object & operator=(Object const &) = delete;
    ~Object() override { --alive; }

    static int alive;
};

int Object::alive = 0;

IRegisteredObject * create()
{
    return new Object;
}

IRegisteredObject * refuse()
{
    throw std::runtime_error("refused");
}

}

TEST(MemoryManager, SharesAnObjectUntilTheLastHolderGoes)
{
    IRegisteredObject * const object = MemoryManager::registerObject("one", create);
    EXPECT_EQ(MemoryManager::registerObject("one", refuse), object);
    EXPECT_NE(MemoryManager::registerObject("two", create), object);
    EXPECT_EQ(Object::alive, 2);

    MemoryManager::unregisterObject("one");
    EXPECT_EQ(Object::alive, 2);
    MemoryManager::unregisterObject("one");
    EXPECT_EQ(Object::alive, 1);
    MemoryManager::unregisterObject("one");
    MemoryManager::unregisterObject("two");
    EXPECT_EQ(Object::alive, 0);

    EXPECT_THROW(MemoryManager::registerObject("one", refuse), std::runtime_error);
    MemoryManager::registerObject("one", create);
    EXPECT_EQ(Object::alive, 1) << "the failure left nothing registered";
    MemoryManager::unregisterObject("one");
}

TEST(MemoryManager, RegistersOnceForManyThreads)
{
    std::vector<IRegisteredObject *> seen(4);
    Vantry::Tests::onThreads(4, [&](unsigned int t) { seen[t] = MemoryManager::registerObject("shared", create); });
    EXPECT_EQ(std::set<IRegisteredObject *>(seen.begin(), seen.end()).size(), 1u);
    Vantry::Tests::onThreads(4, [](unsigned int) { MemoryManager::unregisterObject("shared"); });
    EXPECT_EQ(Object::alive, 0);
}

TEST(Counter, CountsByName)
{
    Counter & counter = Counter::counter("this");
    counter.reset();
    Vantry::Tests::onThreads(4,
                             [](unsigned int)
                             {
                                 for (int i = 0; i < 1000; ++i)
                                     Counter::counter("this").next();
                             });
    EXPECT_EQ(counter.next(), 4000);
    EXPECT_EQ(Counter::counter("that").next(), 0);
    EXPECT_EQ(counter.next(), 4001);
    counter.reset();
    EXPECT_EQ(counter.next(), 0);
}
