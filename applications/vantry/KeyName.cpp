#include "KeyName.h"

#include "KLV/Key.h"
#include "KLV/KeyPredicates.h"
#include "SetNames.h"

#include <cstring>
#include <fmt/compile.h>
#include <iterator>
#include <string_view>

namespace Vantry { namespace Application {

namespace {

int const REGISTRY_VERSION_BYTE = 7;
int const ITEM_BYTE = 12;
int const PARTITION_KIND_BYTE = 13;
int const PARTITION_STATUS_BYTE = 14;

/// The start of a key, whose registry version may be any.
struct KeyStart
{
    unsigned char bytes[16];
    std::size_t size;

    bool matches(KLV::Key const & key) const
    {
        std::size_t const behind = REGISTRY_VERSION_BYTE + 1;
        return std::memcmp(key.rawBuffer(), bytes, REGISTRY_VERSION_BYTE) == 0 &&
               std::memcmp(key.rawBuffer() + behind, bytes + behind, size - behind) == 0;
    }
};

struct NamedKey
{
    KeyStart key;
    std::string_view name;
};

constexpr KeyStart PARTITION_PACK = {{0x06, 0x0E, 0x2B, 0x34, 2, 5, 1, 1, 0x0D, 1, 2, 1, 1}, 13};

constexpr NamedKey NAMED_KEYS[] = {
    {{{0x06, 0x0E, 0x2B, 0x34, 1, 1, 1, 1, 3, 1, 2, 0x10, 1, 0, 0, 0}, 16}, "Fill"},
    {{{0x06, 0x0E, 0x2B, 0x34, 2, 5, 1, 1, 0x0D, 1, 2, 1, 1, 5, 1, 0}, 16}, "Primer Pack"},
    {{{0x06, 0x0E, 0x2B, 0x34, 2, 5, 1, 1, 0x0D, 1, 2, 1, 1, 0x11, 1, 0}, 16}, "Random Index Pack"},
    {{{0x06, 0x0E, 0x2B, 0x34, 2, 0x53, 1, 1, 0x0D, 1, 2, 1, 1, 0x10, 1, 0}, 16}, "Index Table Segment"},
    // the first edition's
    {{{0x06, 0x0E, 0x2B, 0x34, 2, 0x53, 1, 1, 0x0D, 1, 2, 1, 1, 0x10, 0, 0}, 16}, "Index Table Segment"},
    // SMPTE 410M
    {{{0x06, 0x0E, 0x2B, 0x34, 2, 5, 1, 1, 0x0D, 1, 2, 1, 1, 3, 0x11}, 15}, "Generic Stream Partition"},
    {{{0x06, 0x0E, 0x2B, 0x34, 1, 1, 1, 1, 0x0D, 1, 5}, 11}, "Generic Stream Element"},
    // SMPTE 429-6
    {{{0x06, 0x0E, 0x2B, 0x34, 2, 4, 1, 1, 0x0D, 1, 3, 1, 2, 0x7E, 1, 0}, 16}, "Encrypted Triplet"},
};

/// What a byte of a key stands for.
struct ByteName
{
    unsigned char byte;
    std::string_view name;
};

// Content package (SMPTE 385M, 386M) and Generic Container (SMPTE 379M)
constexpr ByteName ITEMS[] = {
    {0x04, "CP System Item"},   {0x05, "CP Picture Element"}, {0x06, "CP Sound Element"},
    {0x07, "CP Data Element"},  {0x14, "GC System Item"},     {0x15, "GC Picture Element"},
    {0x16, "GC Sound Element"}, {0x17, "GC Data Element"},    {0x18, "GC Compound Element"},
};

constexpr ByteName PARTITIONS[] = {{2, "Header Partition"}, {3, "Body Partition"}, {4, "Footer Partition"}};

constexpr ByteName STATUSES[] = {{1, "open, incomplete"},
                                 {2, "closed, incomplete"},
                                 {3, "open, complete"},
                                 {4, "closed, complete"}};

/// Empty for a byte that isn't in the table.
template <std::size_t SIZE>
std::string_view nameOf(ByteName const (&table)[SIZE], unsigned char byte)
{
    for (ByteName const & entry : table)
        if (entry.byte == byte)
            return entry.name;
    return {};
}

void appendEssenceName(fmt::memory_buffer & text, KLV::Key const & key)
{
    std::string_view const item = nameOf(ITEMS, key[ITEM_BYTE]);
    fmt::format_to(std::back_inserter(text), FMT_COMPILE("{} (track number 0x{:02x}{:02x}{:02x}{:02x})"),
                   item.empty() ? "Essence Element" : item, key[12], key[13], key[14], key[15]);
}

/// False when the key is of no partition pack after all.
bool appendPartitionName(fmt::memory_buffer & text, KLV::Key const & key)
{
    std::string_view const partition = nameOf(PARTITIONS, key[PARTITION_KIND_BYTE]);
    if (partition.empty())
        return false;

    unsigned char const status = key[PARTITION_STATUS_BYTE];
    std::string_view const statusName = nameOf(STATUSES, status);
    if (statusName.empty())
        fmt::format_to(std::back_inserter(text), "{} (unknown status 0x{:02x})", partition, status);
    else
        fmt::format_to(std::back_inserter(text), "{} ({})", partition, statusName);
    return true;
}

/// Empty for a key that isn't in the table.
std::string_view wholeName(KLV::Key const & key)
{
    for (NamedKey const & named : NAMED_KEYS)
        if (named.key.matches(key))
            return named.name;
    return {};
}

std::string_view generalName(KLV::Key const & key, SetNames const & sets)
{
    std::string const * const name = sets.find(key);
    if (name != nullptr)
        return *name;
    if (KLV::isStructuralMetadataSet(key))
        return "Structural Metadata Set";
    if (KLV::isDescriptiveMetadataSet(key))
        return "Descriptive Metadata Set";
    return KLV::isLocalSet(key) ? "Unknown Set" : "Unknown";
}

}

void appendKeyName(fmt::memory_buffer & text, KLV::Key const & key, SetNames const & sets)
{
    // Most packets of a large file are essence.
    if (KLV::isEssence(key))
        return appendEssenceName(text, key);

    std::string_view const name = wholeName(key);
    if (!name.empty())
        text.append(name);
    else if (!PARTITION_PACK.matches(key) || !appendPartitionName(text, key))
        text.append(generalName(key, sets));
}

bool isIndexTableSegment(KLV::Key const & key) noexcept
{
    int const EDITION_BYTE = 14;
    KLV::Key later = key;
    if (later[EDITION_BYTE] == 0)
        later[EDITION_BYTE] = 1;
    return KLV::isIndexTableKlvSegment(later);
}

}}
