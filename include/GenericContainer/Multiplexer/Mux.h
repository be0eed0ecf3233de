#pragma once

#include "GenericContainer/EssenceAnalyzer.h"
#include "GenericContainer/Source.h"
#include "Metadata/PartitionMetadata.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace Types {
class UMID32;
}

namespace GenericContainer {

/// Containers whose essence is wrapped by the frame.
namespace Multiplexer {

/// Builds a frame-wrapped essence container (SMPTE 379M).
///
/// An edit unit of each analyzer, or as many as there are in the time, make a
/// content package:
///
///     system item, if any
///     compound elements, picture elements, sound elements, data elements
///
/// An element is a key, a length of four bytes and the analyzer's bytes; a fill
/// item follows where the size asks for it. One thread builds; behind `commit`
/// the builder is of no more use.
class VANTRY_EXPORT Mux
{
public:
    VANTRY_CLASS_ALLOCATION

    /// What has a size that the application sets.
    enum PaddingKind : Int32
    {
        PADD_TO_ELEMENT = 0,  ///< each element for itself, if any
        PADD_TO_ITEM = 1,     ///< all elements of a kind together
        PADD_TO_EDIT_UNIT = 2 ///< the content package
    };

    /// Elements of a kind that are wanted at most: the one that comes when
    /// there are more of them is refused.
    static constexpr unsigned int MAXIMUM_ITEM_COUNT = 127;

    /// A container whose package is made by `commit`.
    ///
    /// \param metadata          gets the package; may be empty, and then none
    ///                          is made
    /// \param essenceContainer  label of the container (SMPTE RP 224)
    /// \param packageRate       content packages per second
    /// \param packageUID        identifies the package; a new one is made for
    ///                          null
    Mux(Templates::SharedPtr<Metadata::PartitionMetadata> metadata, Types::UniversalLabel const & essenceContainer,
        Templates::Rational<int> const & packageRate, Types::UMID32 const * packageUID);

    /// A container of a package that is there, with its tracks and descriptor.
    ///
    /// \param package  lent; it outlives the container
    Mux(Metadata::Structural::SourcePackage * package, Types::UniversalLabel const & essenceContainer,
        Templates::Rational<int> const & packageRate);

    Mux(Mux const &) = delete;
    Mux & operator=(Mux const &) = delete;
    ~Mux();

    /// Adds an analyzer. The first one, or the system analyzer, gives the time
    /// code. The builder counts the elements of a kind.
    ///
    /// \param fill            store edit units of differing sizes at the size
    ///                        that bounds them
    /// \param temporalOffset  seconds by which the essence starts later than
    ///                        the container; below 0, its first content
    ///                        package has what came earlier
    /// \throws Exceptions::IndexOutOfBounds when there are too many of its
    ///         kind.
    /// \throws Exceptions::AlreadySet for a second system analyzer.
    /// \throws Exceptions::InvalidFormat for a second analyzer of VBI data or
    ///         of ANC packets (SMPTE 436M).
    void addAnalyzer(Templates::SharedPtr<EssenceAnalyzer> analyzer, bool fill,
                     Templates::Rational<Int64> const & temporalOffset);

    /// The same with byte 15 of the key, below 128; from 128 on the builder
    /// counts.
    void addAnalyzer(Templates::SharedPtr<EssenceAnalyzer> analyzer, bool fill,
                     Templates::Rational<Int64> const & temporalOffset, unsigned char elementNumber);

    /// Elements have the sizes that come of themselves: those of a constant or
    /// bounded size the same in each content package. So it is at first.
    void paddToElement();

    /// The elements of an item together have a size, in bytes; -1 for an item
    /// that is left as it is.
    void paddToItem(int system, int compound, int picture, int sound, int data);

    /// Content packages have a size, in bytes.
    void paddToEditUnit(unsigned int size);

    PaddingKind paddingType() const;

    /// Elements start on lines of this grid, in bytes, beside those that were
    /// asked for before and by analyzers. With 0 there is no grid any more.
    void kagSize(unsigned int size);

    /// Kept for those who ask the container: the index follows the type of
    /// its segments.
    void indexFillPackets(bool index);

    /// Go on until all analyzers are done, the system analyzer aside, with
    /// null essence for those that are done earlier. Otherwise the first that
    /// is done ends the container, and so it is at first.
    void multiplexAllEssence(bool all);

    /// Items come in the order in which their first analyzer was added.
    void useAnalyzerInputOrderToSortContainer(bool inputOrder);
    bool useAnalyzerInputOrderToSortContainer() const;

    /// The time code track counts on where the time code of the essence jumps.
    void suppressTimecodeDiscontinuities(bool suppress);

    /// Number of the next analyzer's first track or, when it is in use by now,
    /// that of the last one's; the builder then goes on by 256.
    unsigned int nextBaseTrackID() const;

    /// \return false when the number is in use; nothing changes then
    bool nextBaseTrackID(unsigned int trackID);

    /// The time code of the first content package.
    ///
    /// \param override  it goes ahead of that of the essence
    void defaultStartTimecode(bool override, unsigned char hours, unsigned char minutes, unsigned char seconds,
                              unsigned char frames);

    /// Fixes how a content package is laid out, has the analyzers make their
    /// metadata and gives the container.
    ///
    /// \throws Exceptions::InvalidFormat when an analyzer's essence is invalid,
    ///         when essence that isn't stored in its order is there twice, has
    ///         another rate than the container or an offset to it, and when the
    ///         system item doesn't fit into its size.
    Templates::auto_ptr<Source> commit();

private:
    class Impl;
    Impl * impl_;
};

}
}
}
