#pragma once

#include "GenericContainer/EssenceAnalyzer.h"
#include "KLV/Key.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace GenericContainer {

/// An analyzer and the place of its elements in the content package.
struct AnalyzerEntry
{
    Templates::SharedPtr<EssenceAnalyzer> analyzer;

    /// Of the elements.
    KLV::Key key = KLV::Key(NO_KEY);

    /// Seconds read so far.
    Templates::Rational<Int64> position;

    /// Bytes that the element and its fill take in each content package; 0
    /// when they differ.
    UInt32 entryByteCount = 0;

    /// Seconds by which the essence starts later than the container.
    Templates::Rational<Int64> temporalOffset;

    /// Whether the first sample lies at another place in each content package.
    bool needsExtendedIndex = false;

    /// Whether edit units are whole packets, which get no key and length.
    bool raw = false;

    /// Whether the element is the last of what has a size to be filled to.
    bool padToItem = false;

    /// Whether fill follows that the index may record.
    bool filled = false;

    /// The size that is set for all elements of the kind; 0 when none is.
    Int32 itemSize = 0;

    /// Whether the analyzer has completed its metadata.
    bool finalized = false;

private:
    static constexpr unsigned char NO_KEY[16] = {};
};

}}
