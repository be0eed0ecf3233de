#include "Platform/BigEndian.h"
#include "support/ValueCheck.h"

#include <gtest/gtest.h>

namespace Vantry { namespace Tests {

namespace {

namespace Identifiers = Types::Identifiers;

int const TYPES = Identifiers::J2KQuantisationDefault + 1;

}

TEST(BaseTypeFactory, KeepsToTheBytesThatThereAre)
{
    for (int type = -1; type <= TYPES; ++type)
        for (unsigned size = 0; size <= 100; ++size)
            for (UInt64 claim : {UInt64(size), UInt64(size) + 1, UInt64(1) << 32, UInt64(1) << 62})
                for (unsigned char content : {0x00, 0xFF})
                {
                    SCOPED_TRACE(testing::Message() << "type " << type << ", " << size << " of " << claim << " bytes");
                    EXPECT_NO_THROW(checkValue(repeated(size, content), claim,
                                               static_cast<Identifiers::Identifier>(type), Identifiers::UInt8));
                }
}

TEST(BaseTypeFactory, KeepsToTheEntriesThatThereAre)
{
    for (int elementType = 0; elementType < TYPES; ++elementType)
        for (UInt32 entrySize = 0; entrySize <= 70; ++entrySize)
            for (UInt32 count : {1u, 2u, 0x80000000u})
                for (UInt64 claim : {UInt64(8 + 70), UInt64(1) << 62})
                {
                    Bytes bytes = counting(8 + 70);
                    Platform::writeBigEndian<UInt32>(count, &bytes[0]);
                    Platform::writeBigEndian<UInt32>(entrySize, &bytes[4]);
                    SCOPED_TRACE(testing::Message() << count << " of type " << elementType << ", size " << entrySize);
                    EXPECT_NO_THROW(checkValue(bytes, claim, Identifiers::Array,
                                               static_cast<Identifiers::Identifier>(elementType)));
                }
}

}}
