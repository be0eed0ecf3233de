#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"

namespace Vantry { namespace GenericContainer {

class GenericContainerIndexTableGenerator;

/// Collects the index entry of an edit unit while its elements are written.
///
/// For each edit unit a worker calls `prepareNewEntry`, then for each element
/// in their order the three operations that it has something to tell by, and
/// then `appendIndexEntry`. Nothing happens while there is no generator.
class VANTRY_EXPORT IndexEntryBuilder
{
public:
    VANTRY_CLASS_ALLOCATION

    IndexEntryBuilder();
    IndexEntryBuilder(IndexEntryBuilder const &) = delete;
    IndexEntryBuilder & operator=(IndexEntryBuilder const &) = delete;
    ~IndexEntryBuilder();

    /// Who gets the entries from the next `prepareNewEntry` on; lent, may be
    /// null.
    void indexTableGenerator(GenericContainerIndexTableGenerator * generator);

    /// Starts the entry of an edit unit.
    ///
    /// \param streamOffset  bytes ahead of it in the container
    void prepareNewEntry(UInt64 streamOffset);

    /// Gives the entry to the generator.
    void appendIndexEntry();

    /// Takes the place of an element in the position table: how far its first
    /// sample lies from the start of the edit unit.
    ///
    /// \param count          edit units ahead of this one
    /// \param needsExtended  whether the element has such a place
    /// \param temporalOffset seconds by which the essence lies ahead of the
    ///                       container's start
    /// \param position       seconds of the essence ahead of the edit unit
    /// \param target         seconds at which the edit unit ends
    /// \param rate           edit units per second
    /// \throws Exceptions::InvalidValue "Type size exceeded" when the place
    ///         needs numbers of more than 32 bits.
    void processIndexEntryTemporalOffset(UInt64 count, bool needsExtended,
                                         Templates::Rational<Int64> const & temporalOffset,
                                         Templates::Rational<Int64> const & position,
                                         Templates::Rational<Int64> const & target,
                                         Templates::Rational<int> const & rate);

    /// Takes the kind of a picture and where it is shown.
    ///
    /// \param count           edit units ahead of this one
    /// \param temporal        whether the essence has such dependencies;
    ///                        without, nothing is taken
    /// \param flags           as IndexTables::IndexEntry has them. A picture
    ///                        without prediction and without random access
    ///                        starts an open group.
    /// \param temporalOffset  number of the picture within its group, in the
    ///                        order in which they are shown
    void processAnalyzerIndexEntry(UInt64 count, bool temporal, unsigned char flags, signed char temporalOffset);

    /// Takes the slice behind an element.
    ///
    /// \param newSlice     whether one starts there
    /// \param fill         bytes of fill behind the element
    /// \param sliceOffset  bytes from the start of the edit unit to the end of
    ///                     element and fill
    void processAnalyzerIndexEntrySliceOffset(bool newSlice, UInt32 fill, UInt32 sliceOffset);

private:
    class Impl;
    Impl * impl_;
};

}}
