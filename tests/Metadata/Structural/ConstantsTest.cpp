#include "KLV/Key.h"
#include "Metadata/DMS1/DMS1MetadataKeys.h"
#include "Metadata/DMS1/DMS1MetadataULs.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/DistiguishedValue.h"
#include "Metadata/Structural/NullValues.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/Wrappings.h"
#include "Types/UMID32.h"
#include "Types/UMID64.h"
#include "Types/UniversalLabel.h"

#include "support/Bytes.h"

#include <gtest/gtest.h>

using namespace Vantry;
using namespace Vantry::Metadata;
using namespace Vantry::Tests;

namespace {

template <class Identifier>
Bytes bytesOf(Identifier const & identifier)
{
    return Bytes(identifier.rawBuffer(), identifier.rawBuffer() + identifier.size());
}

TEST(Constants, BytesStandAsWritten)
{
    EXPECT_EQ(bytesOf(Structural::StructuralMetadataKeys::preface()),
              hex("06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 2F 00"));
    EXPECT_EQ(bytesOf(DMS1::DMS1MetadataKeys::clipFramework()), hex("06 0E 2B 34 02 53 01 01 0D 01 04 01 01 01 02 00"));
    EXPECT_EQ(bytesOf(DMS1::DMS1MetadataULs::progammingGroupTitle()),
              hex("06 0E 2B 34 01 01 01 05 02 02 06 01 00 00 00 00"));
    EXPECT_EQ(bytesOf(Structural::Wrappings::multipleWrapping()),
              hex("06 0E 2B 34 04 01 01 03 0D 01 03 01 02 7F 01 00"));
    EXPECT_EQ(Structural::DataDefinitionULs::timecode309M(), Structural::DataDefinitionULs::timecode12MActive());
    EXPECT_EQ(bytesOf(Structural::DistiguishedValue::nullUMID32()), Bytes(32, 0));
    EXPECT_EQ(bytesOf(Structural::NullValues::nullUMID64()), Bytes(64, 0));
}

}
