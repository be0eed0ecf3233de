#include "Initializer.h"

#include "Platform/Synchronization/ScopedLock.h"
#include "support/Threads.h"

#include <gmock/gmock.h>

#include <string>

using namespace Vantry;

namespace {

std::string order;

template <char NAME>
void takeDown()
{
    order += NAME;
}

class InitializerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Initializer::shutdown();
        order.clear();
    }

    void add(void (*teardown)(), Initializer::VANTRY_LIBRARY_ID library)
    {
        Initializer & initializer = Initializer::instance();
        Platform::Synchronization::ScopedLock const lock(initializer.singletonMutex());
        initializer.registerSingleton(teardown, library);
    }
};

}

TEST_F(InitializerTest, TakesLibrariesAndTheirSingletonsDownInReverse)
{
    add(takeDown<'A'>, 7);
    add(takeDown<'x'>, 0);
    add(takeDown<'B'>, 7);
    add(takeDown<'y'>, 0);
    add(takeDown<'C'>, 7);

    Initializer::shutdown();
    EXPECT_EQ(order, "yxCBA");
}

TEST_F(InitializerTest, UnloadsOneLibraryOnce)
{
    add(takeDown<'A'>, 3);
    add(takeDown<'B'>, 1);
    Initializer::instance().libraryUnloaded(2);
    EXPECT_EQ(order, "");
    Initializer::instance().libraryUnloaded(3);
    EXPECT_EQ(order, "A");

    add(takeDown<'C'>, 3);
    Initializer::shutdown();
    EXPECT_EQ(order, "ACB") << "a library that came back goes down ahead of the earlier ones";
}

TEST_F(InitializerTest, IsMadeOnceByManyThreads)
{
    std::vector<Initializer *> seen(8);
    Tests::onThreads(8, [&](unsigned int t) { seen[t] = &Initializer::instance(); });

    EXPECT_THAT(seen, testing::Each(&Initializer::instance()));
}
