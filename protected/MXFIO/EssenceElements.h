#pragma once

#include "IndexTables/DeltaEntry.h"
#include "KLV/Key.h"
#include "Templates/Containers.h"

namespace Vantry {
namespace IndexTables {
class IndexTableSegment;
}

namespace MXFIO {

class Partition;
class Reader;

/// The elements that each edit unit of a container has, in their order. They
/// go by track number; its element count byte doesn't matter.
class EssenceElements
{
public:
    struct Element
    {
        IndexTables::DeltaEntry delta;

        /// From 0 in the edit unit.
        unsigned int index;
        unsigned int trackNumber;

        /// As it was met.
        KLV::Key key;
    };

    /// Learns the elements by the first edit unit. The source is moved.
    ///
    /// \param segment  whose delta entries tell where elements are; may be null
    void learn(Reader & reader, Partition & partition, UInt64 searchLimit,
               IndexTables::IndexTableSegment const * segment);

    /// Learns the one element of a container that is a clip.
    ///
    /// \throws Exceptions::InvalidFormat when there is a fill item.
    void learnClip(Reader & reader, Partition & partition, UInt64 searchLimit,
                   IndexTables::IndexTableSegment const * segment);

    /// Whether they were learned from all of an edit unit, for certain.
    bool areAll() const { return areAll_; }

    /// Null when there is none.
    Element const * find(unsigned int trackNumber) const;

    Element const & at(unsigned int index) const { return *order_[index]; }
    unsigned int size() const { return static_cast<unsigned int>(order_.size()); }

    /// The index of the element behind one, 0 behind the last.
    unsigned int indexBehind(Element const & element) const { return (element.index + 1) % size(); }

    /// The element with pictures that are stored in another order than they
    /// are shown in; 0 for none.
    unsigned int temporalReorderingTrack() const { return temporalReorderingTrack_; }

private:
    bool learnBy(Partition & partition, UInt64 searchLimit, IndexTables::IndexTableSegment const * segment);
    void add(KLV::Key const & key, IndexTables::DeltaEntry const & delta);
    void clear();

    Templates::map<unsigned int, Element> elements_;
    Templates::vector<Element const *> order_;
    unsigned int temporalReorderingTrack_ = 0;
    bool areAll_ = false;
};

}
}
