#pragma once

#include "Platform/Export.h"
#include "Platform/Text.h"
#include "Templates/Containers.h"

namespace Vantry { namespace Exceptions {

/// The condition, ": " and the text, as the message of a failed check.
VANTRY_EXPORT Templates::wstring checkMessage(char const * condition, char const * text);
VANTRY_EXPORT Templates::wstring checkMessage(char const * condition, unsigned short const * text);

inline char const * textOf(char const * text)
{
    return text;
}

inline unsigned short const * textOf(unsigned short const * text)
{
    return text;
}

inline char const * textOf(Templates::string const & text)
{
    return text.c_str();
}

inline unsigned short const * textOf(Templates::wstring const & text)
{
    return text.c_str();
}

/// Throws for a failed check; one instance for each exception class.
template <class Exception, class Text>
[[noreturn, gnu::cold, gnu::noinline]] void failCheck(char const * condition, Text const & text, char const * file,
                                                      int line)
{
    throw Exception(checkMessage(condition, textOf(text)).c_str(), file, line);
}

/// Throws with a message that stands alone.
template <class Exception, class Text>
[[noreturn, gnu::cold, gnu::noinline]] void fail(Text const & text, char const * file, int line)
{
    throw Exception(textOf(text), file, line);
}

}}

/// Throws Exceptions::Class with "condition: text" unless the condition holds.
/// The condition is part of the message to the letter, before any macro in
/// it is replaced. The text, narrow or wide, is composed on failure only.
#define VANTRY_CHECK(condition, Class, text)              \
    (__builtin_expect(static_cast<bool>(condition), true) \
         ? static_cast<void>(0)                           \
         : ::Vantry::Exceptions::failCheck<::Vantry::Exceptions::Class>(#condition, text, __FILE__, __LINE__))

/// VANTRY_CHECK for a test whose message has another condition's text.
#define VANTRY_CHECK_TEXT(condition, conditionText, Class, text) \
    (__builtin_expect(static_cast<bool>(condition), true)        \
         ? static_cast<void>(0)                                  \
         : ::Vantry::Exceptions::failCheck<::Vantry::Exceptions::Class>(conditionText, text, __FILE__, __LINE__))

/// Throws Exceptions::Class with the text alone, narrow or wide.
#define VANTRY_FAIL(Class, text) ::Vantry::Exceptions::fail<::Vantry::Exceptions::Class>(text, __FILE__, __LINE__)
