#pragma once

#include "KLV/Key.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Types/LocalTag.h"
#include "Types/UniversalLabel.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}
namespace KLV {
class Packet;
}

namespace Packs {

/// The primer pack, which tells what the local tags of a partition's header
/// metadata stand for (SMPTE 377M, 8.2).
///
///     key, length field
///     4   number of entries
///     4   bytes of an entry: 18
///     per entry   2   local tag
///                 16  label
///
/// All numbers are big-endian. The entries stand in the order of their tags.
/// Pointers that `find` gives stay valid until the entry is removed. One
/// thread at a time.
class VANTRY_EXPORT PrimerPack
{
public:
    VANTRY_CLASS_ALLOCATION

    using Entry = Templates::pair<Types::LocalTag, Types::UniversalLabel>;

    /// The key of a primer pack.
    static KLV::Key const & key();

    /// An empty pack whose length field has 4 bytes.
    PrimerPack();

    /// Reads the packet's value. Entries have 18 bytes, whatever size the
    /// pack claims for them.
    ///
    /// \throws Exceptions::InvalidKey for another key.
    /// \throws Exceptions::InvalidLength when the value ends before the last
    ///         entry.
    explicit PrimerPack(KLV::Packet & packet);

    PrimerPack(PrimerPack const & other);
    ~PrimerPack();

    /// Takes all entries of the other. The pack is a handle, so this is const
    /// and returns a copy.
    PrimerPack operator=(PrimerPack const & other) const;

    /// Adds an entry. A tag that is there already keeps its label. A label
    /// that is there already has two tags from then on, of which the first
    /// is found. Either way the entry becomes one of the duplicates.
    void add(Types::LocalTag const & tag, Types::UniversalLabel const & label);

    /// Removes the entry by which the label is found, and tells whether there
    /// was one. Duplicates stay.
    bool remove(Types::UniversalLabel const & label);

    /// The label of a tag, null when there is none.
    Types::UniversalLabel const * find(Types::LocalTag const & tag) const;

    /// The first tag of a label, null when there is none.
    Types::LocalTag const * find(Types::UniversalLabel const & label) const;

    /// Number of tags.
    unsigned int count() const;

    /// Number of entries that repeated a tag or a label.
    unsigned int countDuplicates() const;

    /// The entry at a place in the order of tags, 0 to `count() - 1`. Takes
    /// time in proportion to the place.
    ///
    /// \throws Exceptions::IndexOutOfBounds behind the last.
    Entry at(unsigned int place) const;

    /// The duplicate at a place in the order of arrival.
    ///
    /// \throws Exceptions::IndexOutOfBounds behind the last.
    Entry atDuplicates(unsigned int place) const;

    /// Bytes of the length field: as read, or as to be written, 1 to 9.
    unsigned char berLength() const;
    void berLength(unsigned char berLength);

    /// Bytes of key, length field and value.
    UInt64 serializedSize() const;

    /// Writes the pack without duplicates of tags.
    ///
    /// \throws Exceptions::InvalidFormat when the length doesn't fit into
    ///         `berLength()` bytes; nothing is written.
    /// \throws Exceptions::IOError when the sink fails.
    void serialize(DataIO::DataSink & sink) const;

private:
    class Record;
    Record * record_;
};

/// Whether all bytes are those of PrimerPack::key().
VANTRY_EXPORT bool isPrimerPack(KLV::Key const & key);

}
}
