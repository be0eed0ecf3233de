#pragma once

#include "DataIO/DataSource.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidValue.h"
#include "Exceptions/NoFactory.h"
#include "KLV/Value.h"
#include "Types/Factories/BaseTypeFactory.h"
#include "support/BytesSink.h"
#include "support/BytesSource.h"

#include <stdexcept>

namespace Vantry { namespace Tests {

inline void require(bool condition, char const * rule)
{
    if (!condition)
        throw std::logic_error(rule);
}

/// Makes a value of `type` from bytes whose length field claims `claim`, and
/// holds what comes out against what the bytes were. A type that has
/// collections is tried as one.
///
/// \throws std::logic_error with the rule that doesn't hold.
inline void checkValue(Bytes const & bytes, UInt64 claim, Types::Identifiers::Identifier type,
                       Types::Identifiers::Identifier elementType)
{
    auto & factory = Types::Factories::BaseTypeFactory::instance();
    bool const collection = factory.hasCollectionType(type);
    auto const begins = [&](unsigned char const * data, UInt64 size)
    {
        return size <= bytes.size() && std::equal(data, data + size, bytes.begin());
    };

    BytesSource source(bytes);
    KLV::Value value(source, claim);
    try
    {
        if (collection)
        {
            Bytes const wire = serialized(*factory.create(value, type, elementType));
            require(wire.size() <= bytes.size(), "a collection is no larger than its bytes");

            BytesSource again(wire);
            KLV::Value valueAgain(again, wire.size());
            require(serialized(*factory.create(valueAgain, type, elementType)) == wire,
                    "a collection is read as it was written");
        }
        else
        {
            auto const made = factory.create(value, type);
            require(begins(made->rawBuffer(), made->serializedSize()), "a value is its bytes");
            require(made->serializedSize() == source.absoluteOffset(), "a value takes its own bytes");
        }
        require(source.absoluteOffset() <= claim, "a value keeps to its length");
    }
    catch (Exceptions::InvalidLength const & failure)
    {
        // Of a collection's entries it has no more than their elements.
        UInt64 const carried = failure.readDataLength();
        require(carried <= bytes.size(), "a failure carries no more than there was");
        require(begins(failure.readData(), collection ? std::min<UInt64>(carried, 8) : carried),
                "a failure carries the bytes that were read");
    }
    catch (Exceptions::InvalidValue const &)
    {
        // Too short for one of the classes with a least size.
    }
    catch (Exceptions::NoFactory const &)
    {
        require(!factory.hasSimpleType(collection ? elementType : type), "a registered type can be made");
    }
}

}}
