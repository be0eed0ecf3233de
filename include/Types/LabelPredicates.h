#pragma once

#include "Platform/Export.h"

namespace Vantry { namespace Types {

class UniversalLabel;

/// \file
/// What the key with the bytes of a label belongs to; see KLV/KeyPredicates.h.

/// A fill item of any registry version.
VANTRY_EXPORT bool isFillItem(UniversalLabel const & label) noexcept;

/// An element of the Generic Container (SMPTE 379M), or a set or fixed pack
/// of its system item.
VANTRY_EXPORT bool isEssence(UniversalLabel const & label) noexcept;

/// Structural or descriptive metadata.
VANTRY_EXPORT bool isMetadataSet(UniversalLabel const & label) noexcept;

/// A set of structural metadata (SMPTE 377M, annexes A and B).
VANTRY_EXPORT bool isStructuralMetadataSet(UniversalLabel const & label) noexcept;

/// A set of a descriptive metadata scheme, with any coding of tags and
/// lengths.
VANTRY_EXPORT bool isDescriptiveMetadataSet(UniversalLabel const & label) noexcept;

/// An index table segment (SMPTE 377M, 10.2).
VANTRY_EXPORT bool isIndexTableKlvSegment(UniversalLabel const & label) noexcept;

VANTRY_EXPORT bool isFixedPack(UniversalLabel const & label) noexcept;

/// A local set. The coding of tags and lengths is not looked at: unlike
/// KLV::isMXFDefaultLocalSet this is the same as KLV::isLocalSet.
VANTRY_EXPORT bool isMXFDefaultLocalSet(UniversalLabel const & label) noexcept;

}}
