#include "MetaMetadata/SameValue.h"

#include "DataIO/Memory/MemoryDataSink.h"
#include "Types/BaseType.h"

#include <algorithm>
#include <typeinfo>

namespace Vantry { namespace MetaMetadata {

bool sameValue(Types::BaseType const * left, Types::BaseType const * right)
{
    if (left == right)
        return true;
    if (left == nullptr || right == nullptr || typeid(*left) != typeid(*right))
        return false;

    DataIO::Memory::MemoryDataSink mine;
    DataIO::Memory::MemoryDataSink theirs;
    left->serialize(mine);
    right->serialize(theirs);
    return std::equal(mine.rawBuffer(), mine.rawBuffer() + mine.serializedSize(), theirs.rawBuffer(),
                      theirs.rawBuffer() + theirs.serializedSize());
}

}}
