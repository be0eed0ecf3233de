#include "Initializer.h"

#include "Platform/Synchronization/ScopedLock.h"
#include "support/Failure.h"

#include "Exceptions/InvalidState.h"

#include <gmock/gmock.h>

#include <string>
#include <thread>
#include <vector>

using namespace Vantry;

namespace {

std::string order;
bool refuses = false;

template <char NAME>
void takeDown()
{
    order += NAME;
}

void refuse()
{
    order += '!';
    if (refuses)
        throw Exceptions::InvalidState("still in use", __FILE__, __LINE__);
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
    Initializer::shutdown();
    Initializer::instance();
    Initializer::shutdown();
    EXPECT_EQ(order, "yxCBA") << "a second end, and a new instance, have nothing to take down";
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

TEST_F(InitializerTest, KeepsALibraryWhoseTeardownThrows)
{
    add(takeDown<'A'>, 1);
    add(refuse, 2);
    refuses = true;
    EXPECT_FAILURE(InvalidState, "still in use", Initializer::instance().libraryUnloaded(2));
    EXPECT_FAILURE(InvalidState, "still in use", Initializer::shutdown());
    EXPECT_EQ(order, "!!");

    refuses = false;
    Initializer::shutdown();
    EXPECT_EQ(order, "!!!A");
}

TEST_F(InitializerTest, IsMadeOnceByManyThreads)
{
    std::vector<Initializer *> seen(8);
    std::vector<std::thread> threads;
    for (Initializer *& instance : seen)
        threads.emplace_back([&instance] { instance = &Initializer::instance(); });
    for (std::thread & thread : threads)
        thread.join();

    EXPECT_THAT(seen, testing::Each(&Initializer::instance()));
}
