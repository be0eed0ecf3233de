#include "KLV/Key.h"
#include "Metadata/DMS1/DMS1MetadataKeyList.h"
#include "Metadata/DMS1/DMS1MetadataKeys.h"
#include "Metadata/DMS1/DMS1MetadataULList.h"
#include "Metadata/DMS1/DMS1MetadataULs.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/DistiguishedValue.h"
#include "Metadata/Structural/IndexTableULList.h"
#include "Metadata/Structural/IndexTablesULs.h"
#include "Metadata/Structural/NullValues.h"
#include "Metadata/Structural/StructuralMetadataKeyList.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/StructuralMetadataULList.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Metadata/Structural/Wrappings.h"
#include "Types/UMID32.h"
#include "Types/UMID64.h"
#include "Types/UniversalLabel.h"

#include "support/Bytes.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

using namespace Vantry;
using namespace Vantry::Metadata;
using namespace Vantry::Tests;

namespace {

template <class Identifier>
Bytes bytesOf(Identifier const & identifier)
{
    return Bytes(identifier.rawBuffer(), identifier.rawBuffer() + identifier.size());
}

// Tables share one register, so a row in two of them is a slip of the pen.
TEST(Constants, NoTwoTablesShareARow)
{
    std::map<Bytes, std::string> seen;
    std::string clashes;
    int rows = 0;
    auto const enter = [&](char const * name, Bytes const & bytes)
    {
        ++rows;
        auto const place = seen.emplace(bytes, name);
        if (!place.second)
            clashes += place.first->second + " " + name + "; ";
    };
#define ENTER(name, text) enter(#name, bytesOf(name()));
    {
        using namespace Structural::StructuralMetadataULs;
        VANTRY_STRUCTURAL_METADATA_ULS(ENTER)
    }
    {
        using namespace Structural::IndexTablesULs;
        VANTRY_INDEX_TABLE_ULS(ENTER)
    }
    {
        using namespace DMS1::DMS1MetadataULs;
        VANTRY_DMS1_METADATA_ULS(ENTER)
    }
    EXPECT_EQ(rows, 189 + 8 + 192);
    EXPECT_EQ(clashes, "geographicalCoordinate astronomicalBodyName; ");

    rows = 0;
    {
        using namespace Structural::StructuralMetadataKeys;
        VANTRY_STRUCTURAL_METADATA_KEYS(ENTER)
    }
    {
        using namespace DMS1::DMS1MetadataKeys;
        VANTRY_DMS1_METADATA_KEYS(ENTER)
    }
#undef ENTER
    EXPECT_EQ(rows, 35 + 32);
    EXPECT_EQ(seen.size(), 189u + 8 + 191 + 35 + 32);
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
