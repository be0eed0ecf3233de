#pragma once

#include "Platform/Integers.h"
#include "Templates/Rational.h"

namespace Vantry { namespace GenericContainer {

struct AnalyzerEntry;
struct EditUnit;

/// Gathers the edit units of an analyzer that fall into a content package,
/// and null essence where it has none.
class ItemReader
{
public:
    /// \param packageRate  content packages per second
    /// \param preCharge    seconds that come ahead of what is shown; an
    ///                     analyzer with less starts that much later
    /// \param fillsUp      whether null essence follows where an analyzer ends
    ItemReader(Templates::Rational<int> const & packageRate, Templates::Rational<int> const & preCharge, bool fillsUp);

    /// Reads all edit units that start ahead of a time, in seconds of the
    /// container.
    ///
    /// \param item  stays not valid when there are none
    /// \throws Exceptions::InvalidState when an analyzer gives edit units that
    ///         take no time, without end.
    void read(AnalyzerEntry & entry, Templates::Rational<Int64> const & end, EditUnit & item) const;

private:
    void fetch(AnalyzerEntry & entry, EditUnit & unit, Templates::Rational<Int64> const & time) const;

    Templates::Rational<int> packageDuration_;
    Templates::Rational<int> preCharge_;
    bool fillsUp_;
};

}}
