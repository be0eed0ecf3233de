#pragma once

#include <cstddef>

/// \file
/// Tables of keys and labels, and the functions that give them out.

namespace Vantry { namespace Metadata {

/// Sixteen bytes, from text such as "06 0E 2B 34 ...".
struct IdentifierBytes
{
    constexpr explicit IdentifierBytes(char const (&text)[16 * 3]) : bytes()
    {
        for (int i = 0; i < 16; ++i)
            bytes[i] = static_cast<unsigned char>(digit(text[3 * i]) << 4 | digit(text[3 * i + 1]));
    }

    /// Stops the compiler at a character that is no digit.
    static constexpr int digit(char c)
    {
        return c >= '0' && c <= '9' ? c - '0' : c >= 'A' && c <= 'F' ? c - 'A' + 10 : throw "no hexadecimal digit";
    }

    unsigned char bytes[16];
};

constexpr bool operator==(IdentifierBytes const & left, IdentifierBytes const & right)
{
    // From the end, where labels of one table differ soonest.
    for (int i = 15; i >= 0; --i)
        if (left.bytes[i] != right.bytes[i])
            return false;
    return true;
}

/// How many pairs of rows are equal.
template <std::size_t N>
constexpr int equalPairs(IdentifierBytes const (&table)[N])
{
    int pairs = 0;
    for (std::size_t i = 1; i < N; ++i)
        for (std::size_t j = 0; j < i; ++j)
            pairs += table[i] == table[j];
    return pairs;
}

/// A constant that stands in the program's data ahead of any initialiser, and
/// as long as the program does.
template <class T>
union Constant
{
    constexpr explicit Constant(IdentifierBytes const & bytes) : value(bytes.bytes) {}
    ~Constant() {} // NOLINT(modernize-use-equals-default): that would be a deleted one

    T value;
};

}}

#define VANTRY_CONSTANT_INDEX(name, text) INDEX_OF_##name,
#define VANTRY_CONSTANT_BYTES(name, text) IdentifierBytes(text),
#define VANTRY_CONSTANT_OBJECT(name, text) CONSTANT(BYTES[INDEX_OF_##name]),
#define VANTRY_CONSTANT_ACCESSOR(name, text)     \
    Object const & name() noexcept               \
    {                                            \
        return CONSTANTS[INDEX_OF_##name].value; \
    }

/// Defines a function for each row of a list, which returns the constant of
/// that row. `BYTES` is the whole table.
#define VANTRY_CONSTANT_TABLE(type, LIST)                              \
    namespace {                                                        \
    using Object = type;                                               \
    using CONSTANT = Constant<Object>;                                 \
    enum                                                               \
    {                                                                  \
        LIST(VANTRY_CONSTANT_INDEX)                                    \
    };                                                                 \
    constexpr IdentifierBytes BYTES[] = {LIST(VANTRY_CONSTANT_BYTES)}; \
    CONSTANT const CONSTANTS[] = {LIST(VANTRY_CONSTANT_OBJECT)};       \
    }                                                                  \
    LIST(VANTRY_CONSTANT_ACCESSOR)
