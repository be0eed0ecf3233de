#pragma once

#include "KLV/Key.h"
#include "Platform/Export.h"

namespace Vantry { namespace KLV {

/// A local set of any coding of tags and lengths.
VANTRY_EXPORT bool isLocalSet(Key const & key) noexcept;

/// A local set with two-byte tags and two-byte lengths.
VANTRY_EXPORT bool isMXFDefaultLocalSet(Key const & key) noexcept;

VANTRY_EXPORT bool isFixedPack(Key const & key) noexcept;

/// A set of structural metadata (SMPTE 377M, annexes A and B).
VANTRY_EXPORT bool isStructuralMetadataSet(Key const & key) noexcept;

/// A set of a descriptive metadata scheme, with any coding of tags and
/// lengths.
VANTRY_EXPORT bool isDescriptiveMetadataSet(Key const & key) noexcept;

/// Structural or descriptive.
VANTRY_EXPORT bool isMetadataSet(Key const & key) noexcept;

/// An index table segment (SMPTE 377M, 10.2).
VANTRY_EXPORT bool isIndexTableKlvSegment(Key const & key) noexcept;

/// A fill item of any registry version.
VANTRY_EXPORT bool isFillItem(Key const & key) noexcept;

/// An element of the Generic Container (SMPTE 379M), or a set or fixed pack
/// of its system item.
VANTRY_EXPORT bool isEssence(Key const & key) noexcept;

}}
