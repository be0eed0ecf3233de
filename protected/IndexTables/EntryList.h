#pragma once

#include "DataIO/DataSink.h"
#include "Exceptions/InvalidLength.h"
#include "Platform/Allocation.h"
#include "Platform/BigEndian.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

#include <algorithm>
#include <cstddef>

namespace Vantry {
namespace KLV {
class Value;
}

namespace IndexTables {

/// An array of entries as a segment has it: 4 bytes of count, 4 bytes of
/// entry size, the entries.
struct EntryArrayBytes
{
    static constexpr unsigned int HEAD_SIZE = 8;

    /// Reads the array, of whose entries there may be fewer bytes than it
    /// claims where the source ends before the value does.
    ///
    /// \param expectedSize    bytes that an entry has to have
    /// \param differenceText  the message when it claims another size
    /// \throws Exceptions::InvalidLength when the array contradicts the value
    ///         or itself.
    EntryArrayBytes(KLV::Value & value, unsigned int expectedSize, char const * differenceText);

    UInt32 count;
    UInt32 entrySize;
    Templates::vector<unsigned char> entries;
};

/// What a DeltaEntryArray and an IndexEntryArray are made of.
template <class Entry>
class EntryList
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param entrySize  bytes of each entry
    explicit EntryList(UInt32 entrySize) : entrySize_(entrySize) {}

    /// Decodes what was read.
    ///
    /// \param mend    is called with each entry and its place
    /// \param counts  what an entry needs to know beside its bytes
    template <class Mend, class... Counts>
    EntryList(EntryArrayBytes const & read, Mend mend, Counts... counts) : entrySize_(read.entrySize)
    {
        std::size_t const whole = read.count == 0 ? 0 : read.entries.size() / entrySize_;
        entries_.reserve(whole);
        for (std::size_t i = 0; i < whole; ++i)
        {
            entries_.emplace_back(read.entries.data() + i * entrySize_, counts...);
            mend(entries_.back(), i);
        }
        if (whole < read.count)
            failForMissing(read.count);
    }

    UInt32 size() const noexcept { return static_cast<UInt32>(entries_.size()); }
    UInt32 entrySize() const noexcept { return entrySize_; }
    UInt64 serializedSize() const noexcept { return EntryArrayBytes::HEAD_SIZE + UInt64(size()) * entrySize_; }

    bool fits(Entry const & entry) const { return entry.serializedSize() == entrySize_; }

    Entry & operator[](UInt32 index) { return entries_[index]; }
    void insert(UInt32 index, Entry const & entry) { entries_.insert(entries_.begin() + index, entry); }
    void remove(UInt32 index) { entries_.erase(entries_.begin() + index); }

    /// Writes the array, many entries at a time.
    void serialize(DataIO::DataSink & sink) const
    {
        UInt32 const entriesAtOnce = std::max<UInt32>(1, MOST_AT_ONCE / std::max<UInt32>(1, entrySize_));

        Bytes bytes = head(size());
        for (UInt32 i = 0; i < size(); ++i)
        {
            append(entries_[i], bytes);
            if ((i + 1) % entriesAtOnce == 0)
            {
                sink.write(bytes.data(), bytes.size());
                bytes.clear();
            }
        }
        if (!bytes.empty())
            sink.write(bytes.data(), bytes.size());
    }

private:
    using Bytes = Templates::vector<unsigned char>;

    static constexpr UInt32 MOST_AT_ONCE = 1 << 16;

    Bytes head(UInt32 count) const
    {
        Bytes bytes(EntryArrayBytes::HEAD_SIZE);
        Platform::writeBigEndian<UInt32>(count, bytes.data());
        Platform::writeBigEndian<UInt32>(entrySize_, bytes.data() + 4);
        return bytes;
    }

    static void append(Entry const & entry, Bytes & bytes)
    {
        std::size_t const offset = bytes.size();
        bytes.resize(offset + entry.serializedSize());
        entry.write(bytes.data() + offset);
    }

    [[noreturn]] void failForMissing(UInt32 count) const
    {
        Bytes bytes = head(count);
        for (Entry const & entry : entries_)
            append(entry, bytes);
        throw Exceptions::InvalidLength(
            bytes.data(), bytes.size(),
            "Invalid data size in Value to create an element in the Index Table collections.", __FILE__, __LINE__);
    }

    UInt32 entrySize_;
    Templates::vector<Entry> entries_;
};

}
}
