#pragma once

#include "Platform/Integers.h"

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace Vantry { namespace Tests {

/// A run of bytes, written out in a test as hexadecimal text.
class Bytes : public std::vector<unsigned char>
{
public:
    using std::vector<unsigned char>::vector;

    Bytes first(std::size_t count) const { return Bytes(begin(), begin() + static_cast<std::ptrdiff_t>(count)); }

    Bytes & operator+=(Bytes const & other)
    {
        insert(end(), other.begin(), other.end());
        return *this;
    }
};

inline Bytes operator+(Bytes left, Bytes const & right)
{
    left += right;
    return left;
}

/// "06 0E 2B34" as bytes; blanks are passed over.
inline Bytes hex(std::string const & text)
{
    Bytes bytes;
    std::string pair;
    for (char c : text)
    {
        if (c == ' ' || c == '\n')
            continue;
        pair += c;
        if (pair.size() < 2)
            continue;
        bytes.push_back(static_cast<unsigned char>(std::stoi(pair, nullptr, 16)));
        pair.clear();
    }
    return bytes;
}

/// `count` bytes that count up from `first`.
inline Bytes counting(std::size_t count, unsigned char first = 0)
{
    Bytes bytes(count);
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<unsigned char>(first + i);
    return bytes;
}

/// `count` bytes of one value.
inline Bytes repeated(std::size_t count, unsigned char value)
{
    return Bytes(count, value);
}

inline std::ostream & operator<<(std::ostream & out, Bytes const & bytes)
{
    static char const DIGITS[] = "0123456789ABCDEF";
    for (unsigned char byte : bytes)
        out << DIGITS[byte >> 4] << DIGITS[byte & 15] << ' ';
    return out << '(' << bytes.size() << " bytes)";
}

}}
