#pragma once

#include "Exceptions/InvalidLength.h"
#include "KLV/Value.h"
#include "Platform/Text.h"
#include "support/BytesSource.h"

namespace Vantry { namespace Tests {

/// A value of class `X` made from a KLV value of these bytes.
template <class X, class... Arguments>
X valueOf(Bytes const & bytes, Arguments... arguments)
{
    BytesSource source(bytes);
    KLV::Value value(source, bytes.size());
    return X(value, arguments...);
}

/// What an InvalidLength says and the bytes that it carries.
struct LengthFailure
{
    std::string message;
    Bytes bytes;

    bool operator==(LengthFailure const & other) const { return message == other.message && bytes == other.bytes; }
};

inline std::ostream & operator<<(std::ostream & out, LengthFailure const & failure)
{
    return out << '"' << failure.message << "\" with " << failure.bytes;
}

template <class Action>
LengthFailure lengthFailureOf(Action const & action)
{
    try
    {
        action();
    }
    catch (Exceptions::InvalidLength const & failure)
    {
        return {Platform::wstringToString(failure.message()).c_str(),
                Bytes(failure.readData(), failure.readData() + failure.readDataLength())};
    }
    return {"nothing was thrown", {}};
}

}}
