#include "KLV/KeyBytes.h"

#include <cstddef>
#include <cstring>

namespace Vantry { namespace KLV { namespace KeyBytes {

namespace {

unsigned char const SMPTE_PREFIX[] = {0x06, 0x0E, 0x2B, 0x34};
unsigned char const INDEX_TABLE_SEGMENT[] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x53, 0x01, 0x01,
                                             0x0D, 0x01, 0x02, 0x01, 0x01, 0x10, 0x01, 0x00};
unsigned char const FILL_ITEM[] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x01, 0x01};
unsigned char const FILL_ITEM_BEHIND_VERSION[] = {0x03, 0x01, 0x02, 0x10, 0x01, 0x00, 0x00, 0x00};
unsigned char const ESSENCE_ELEMENT[] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x02, 0x01, 0x01, 0x0D, 0x01, 0x03, 0x01};

// From byte 6 on.
unsigned char const STRUCTURAL_METADATA[] = {0x01, 0x01, 0x0D, 0x01, 0x01, 0x01, 0x01};
unsigned char const DESCRIPTIVE_METADATA[] = {0x01, 0x01, 0x0D, 0x01, 0x04, 0x01};
unsigned char const GENERIC_CONTAINER[] = {0x01, 0x01, 0x0D, 0x01, 0x03, 0x01};

// Category of sets and packs, and registry designators.
unsigned char const GROUP = 0x02;
unsigned char const LOCAL_SET = 0x03;
unsigned char const MXF_LOCAL_SET = 0x53;
unsigned char const FIXED_PACK = 0x05;

// The other bits of a local set's designator tell its coding of tags and
// lengths.
unsigned char const LOCAL_SET_MASK = 0x87;

template <std::size_t N>
bool has(unsigned char const * bytes, unsigned char const (&expected)[N]) noexcept
{
    return std::memcmp(bytes, expected, N) == 0;
}

bool isGroup(unsigned char const * bytes) noexcept
{
    return hasSMPTEPrefix(bytes) && bytes[4] == GROUP;
}

}

bool hasSMPTEPrefix(unsigned char const * bytes) noexcept
{
    return has(bytes, SMPTE_PREFIX);
}

bool isLocalSet(unsigned char const * bytes) noexcept
{
    return isGroup(bytes) && (bytes[5] & LOCAL_SET_MASK) == LOCAL_SET;
}

bool isMXFDefaultLocalSet(unsigned char const * bytes) noexcept
{
    return isGroup(bytes) && bytes[5] == MXF_LOCAL_SET;
}

bool isFixedPack(unsigned char const * bytes) noexcept
{
    return isGroup(bytes) && bytes[5] == FIXED_PACK;
}

bool isStructuralMetadataSet(unsigned char const * bytes) noexcept
{
    return isMXFDefaultLocalSet(bytes) && has(bytes + 6, STRUCTURAL_METADATA) && bytes[15] == 0;
}

bool isDescriptiveMetadataSet(unsigned char const * bytes) noexcept
{
    return isLocalSet(bytes) && has(bytes + 6, DESCRIPTIVE_METADATA);
}

bool isMetadataSet(unsigned char const * bytes) noexcept
{
    return isStructuralMetadataSet(bytes) || isDescriptiveMetadataSet(bytes);
}

bool isIndexTableKlvSegment(unsigned char const * bytes) noexcept
{
    return has(bytes, INDEX_TABLE_SEGMENT);
}

bool isFillItem(unsigned char const * bytes) noexcept
{
    return has(bytes, FILL_ITEM) && has(bytes + 8, FILL_ITEM_BEHIND_VERSION);
}

bool isEssence(unsigned char const * bytes) noexcept
{
    bool const isSystemItem = (isLocalSet(bytes) || isFixedPack(bytes)) && has(bytes + 6, GENERIC_CONTAINER);
    return isSystemItem || has(bytes, ESSENCE_ELEMENT);
}

}}}
