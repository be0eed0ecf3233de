#pragma once

/// What the 16 bytes of a key or label say. The public predicates of keys and
/// of labels stand on these.
namespace Vantry { namespace KLV { namespace KeyBytes {

/// Whether the first four bytes are those of SMPTE keys and labels.
bool hasSMPTEPrefix(unsigned char const * bytes) noexcept;

bool isLocalSet(unsigned char const * bytes) noexcept;
bool isMXFDefaultLocalSet(unsigned char const * bytes) noexcept;
bool isFixedPack(unsigned char const * bytes) noexcept;
bool isStructuralMetadataSet(unsigned char const * bytes) noexcept;
bool isDescriptiveMetadataSet(unsigned char const * bytes) noexcept;
bool isMetadataSet(unsigned char const * bytes) noexcept;
bool isIndexTableKlvSegment(unsigned char const * bytes) noexcept;
bool isFillItem(unsigned char const * bytes) noexcept;
bool isEssence(unsigned char const * bytes) noexcept;

}}}
