#pragma once

#include "Platform/Text.h"
#include "Templates/Containers.h"
#include "Types/Identifiers.h"

namespace Vantry { namespace MetaMetadata {

inline bool isReferenceType(Types::Identifiers::Identifier type) noexcept
{
    return type == Types::Identifiers::StrongReference || type == Types::Identifiers::WeakReference;
}

inline bool isCollectionType(Types::Identifiers::Identifier type) noexcept
{
    return type == Types::Identifiers::Array || type == Types::Identifiers::Batch;
}

/// A message that ends in the name of a type.
inline Templates::wstring typeMessage(char const * text, Types::Identifiers::Identifier type)
{
    return Platform::stringToWstring(text) + Types::Identifiers::identifierToString(type);
}

}}
