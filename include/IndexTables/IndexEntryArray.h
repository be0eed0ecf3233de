#pragma once

#include "IndexTables/IndexEntry.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace IndexTables {

template <class Entry>
class EntryList;

/// The index entries of a segment, one for each edit unit in the order of the
/// file.
///
///     4  number of entries
///     4  bytes of each: 11, 4 for each slice but the first, 8 for each entry
///        of the position table
///        the entries
///
/// References to entries are good until an entry comes or goes.
class VANTRY_EXPORT IndexEntryArray
{
public:
    VANTRY_CLASS_ALLOCATION

    /// No entries; those to come have so many slice offsets and entries of the
    /// position table.
    IndexEntryArray(unsigned char sliceCount, unsigned char posTableCount);

    /// Reads the array; bytes behind it are left. A key frame offset of 127,
    /// which some writers give where none is known, becomes the distance back
    /// to the first entry, modulo 256.
    ///
    /// \throws Exceptions::InvalidLength when there are fewer bytes than it
    ///         claims, or when entries haven't the size that the counts give.
    ///         It carries what was read in the first case.
    IndexEntryArray(KLV::Value & value, unsigned char sliceCount, unsigned char posTableCount);

    IndexEntryArray(IndexEntryArray const &) = delete;
    IndexEntryArray & operator=(IndexEntryArray const &) = delete;
    virtual ~IndexEntryArray();

    /// Bytes of the wire form.
    virtual UInt64 serializedSize() const;

    /// Writes the wire form.
    ///
    /// \throws Exceptions::IOError when the sink fails.
    virtual void serialize(DataIO::DataSink & sink) const;

    /// Number of entries.
    unsigned int size() const;

    /// Bytes of each entry: what the counts give, or what an empty array said
    /// that was read.
    unsigned int elementSize() const;

    /// An entry, counted from 0.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    IndexEntry & at(unsigned int index);
    IndexEntry const & at(unsigned int index) const;

    /// \throws Exceptions::IndexOutOfBounds when there is none.
    void remove(unsigned int index);

    /// Adds a copy at the end.
    ///
    /// \throws Exceptions::InvalidElement when it hasn't the element size.
    void append(IndexEntry const & entry);

    /// Puts a copy before the entry at `index`, which may be the number of
    /// entries.
    ///
    /// \throws Exceptions::InvalidElement when it hasn't the element size.
    /// \throws Exceptions::IndexOutOfBounds when `index` lies beyond.
    void insertAt(unsigned int index, IndexEntry const & entry);

private:
    EntryList<IndexEntry> * entries_;
};

}}
