#include <gtest/gtest.h>

#include <dlfcn.h>

namespace {

int teardowns = 0;

void takeDown()
{
    ++teardowns;
}

// What this program, which isn't linked to the library, calls by symbol.
using Instance = void * (*)();
using RegisterSingleton = void (*)(void * self, void (*teardown)(), int library);

template <class Function>
Function symbol(void * library, char const * name)
{
    return reinterpret_cast<Function>(::dlsym(library, name));
}

}

TEST(Load, UnloadingTakesTheSingletonsDown)
{
    for (int round = 1; round <= 2; ++round)
    {
        void * const library = ::dlopen(VANTRY_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library, nullptr) << ::dlerror();
        auto const instance = symbol<Instance>(library, "_ZN6Vantry11Initializer8instanceEv");
        auto const registerSingleton =
            symbol<RegisterSingleton>(library, "_ZN6Vantry11Initializer17registerSingletonEPFvvEi");
        ASSERT_TRUE(instance != nullptr && registerSingleton != nullptr);

        // Nobody else knows the factory once the library is gone: a leak
        // sanitizer tells if it was left behind.
        auto const blockFactory = symbol<Instance>(library, "_ZN6Vantry6DataIO6Memory18MemoryBlockFactory8instanceEv");
        ASSERT_NE(blockFactory, nullptr);
        ASSERT_NE(blockFactory(), nullptr);

        registerSingleton(instance(), takeDown, 0);
        EXPECT_EQ(teardowns, round - 1);
        ::dlclose(library);
        EXPECT_EQ(teardowns, round);
    }
}
