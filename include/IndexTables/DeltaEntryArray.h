#pragma once

#include "IndexTables/DeltaEntry.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace IndexTables {

template <class Entry>
class EntryList;

/// The delta entries of an index table segment, one for each element of an
/// edit unit in the order of the file.
///
///     4  number of entries
///     4  bytes of each: 6
///        the entries
///
/// References to entries are good until an entry comes or goes.
class VANTRY_EXPORT DeltaEntryArray
{
public:
    VANTRY_CLASS_ALLOCATION

    /// No entries.
    DeltaEntryArray();

    /// Reads the array; bytes behind it are left.
    ///
    /// \throws Exceptions::InvalidLength when there are fewer bytes than it
    ///         claims, or when entries haven't 6 bytes. It carries what was
    ///         read in the first case.
    explicit DeltaEntryArray(KLV::Value & value);

    DeltaEntryArray(DeltaEntryArray const &) = delete;
    DeltaEntryArray & operator=(DeltaEntryArray const &) = delete;
    virtual ~DeltaEntryArray();

    /// Bytes of the wire form.
    virtual UInt64 serializedSize() const;

    /// Writes the wire form.
    ///
    /// \throws Exceptions::IOError when the sink fails.
    virtual void serialize(DataIO::DataSink & sink) const;

    /// Number of entries.
    unsigned int size() const;

    /// Bytes of each entry: 6, or what an empty array said that was read.
    unsigned int elementSize() const;

    /// An entry, counted from 0.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    DeltaEntry & at(unsigned int index);
    DeltaEntry const & at(unsigned int index) const;

    /// \throws Exceptions::IndexOutOfBounds when there is none.
    void remove(unsigned int index);

    /// Adds a copy at the end.
    ///
    /// \throws Exceptions::InvalidElement when it hasn't the element size.
    void append(DeltaEntry const & entry);

    /// Puts a copy before the entry at `index`, which may be the number of
    /// entries.
    ///
    /// \throws Exceptions::InvalidElement when it hasn't the element size.
    /// \throws Exceptions::IndexOutOfBounds when `index` lies beyond.
    void insertAt(unsigned int index, DeltaEntry const & entry);

private:
    EntryList<DeltaEntry> * entries_;
};

}}
