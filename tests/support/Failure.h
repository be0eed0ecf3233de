#pragma once

#include "Exceptions/BaseException.h"
#include "Platform/Text.h"

#include <gtest/gtest.h>

/// Expects that the statement throws exactly this class of Vantry::Exceptions
/// with exactly this message.
#define EXPECT_FAILURE(Class, text, statement)                                                                       \
    try                                                                                                              \
    {                                                                                                                \
        static_cast<void>(statement);                                                                                \
        ADD_FAILURE() << "nothing was thrown, expected " #Class ": " << (text);                                      \
    }                                                                                                                \
    catch (::Vantry::Exceptions::Class const & failure)                                                              \
    {                                                                                                                \
        EXPECT_STREQ(::Vantry::Platform::wstringToString(failure.message()).c_str(), text);                          \
    }                                                                                                                \
    catch (::Vantry::Exceptions::BaseException const & failure)                                                      \
    {                                                                                                                \
        ADD_FAILURE() << "expected " #Class ", got " << ::Vantry::Platform::wstringToString(failure.what()).c_str(); \
    }                                                                                                                \
    static_assert(true, "a semicolon follows")
