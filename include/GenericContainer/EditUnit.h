#pragma once

#include "DataIO/Chain.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Utils/TimeCode.h"

namespace Vantry { namespace GenericContainer {

/// One edit unit of essence, as an analyzer hands it out.
///
/// It isn't copied: its bytes move on from chain to chain.
struct EditUnit
{
    VANTRY_CLASS_ALLOCATION

    /// Whether there is an edit unit here.
    bool valid = false;

    /// The bytes of the element's value, without key and length; a system
    /// item's whole packets instead.
    DataIO::Chain data;

    /// Seconds that it covers.
    Templates::Rational<int> duration;

    /// A number of the analyzer's own, added up over the edit units that go
    /// into one content package.
    UInt32 count = 0;

    /// The time code of the essence; undefined when it has none.
    Utils::TimeCode timeCode;

    /// The picture's temporal reference within its group of pictures, for
    /// essence that isn't stored in the order in which it is shown.
    Int8 temporalOffset = 0;

    /// Flags of the index entry (SMPTE 377M, 10.2): random access unless the
    /// analyzer says otherwise.
    UInt8 flags = 0x80;
};

}}
