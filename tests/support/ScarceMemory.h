#pragma once

// For a test, in one source per program, that asks for memory out of reach
// and wants to be told: sanitizers would end the program there.
extern "C" [[gnu::used]] inline char const * __asan_default_options()
{
    return "allocator_may_return_null=1";
}
extern "C" [[gnu::used]] inline char const * __tsan_default_options()
{
    return "allocator_may_return_null=1";
}
