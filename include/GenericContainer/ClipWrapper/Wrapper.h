#pragma once

#include "DataIO/BufferSliceSource.h"
#include "GenericContainer/EssenceAnalyzer.h"
#include "GenericContainer/Source.h"
#include "Metadata/PartitionMetadata.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace GenericContainer {

/// Containers whose essence is wrapped by the clip.
namespace ClipWrapper {

/// Builds a clip-wrapped essence container (SMPTE 379M): all edit units of an
/// analyzer make one element, a key, a length of eight bytes and the bytes.
/// With several analyzers one such element follows the other.
///
/// Where the size of the clip isn't known from the start the length is 0, and
/// the source hands an updater out that has it later. One thread builds; behind
/// `commit` the builder is of no more use.
class VANTRY_EXPORT Wrapper
{
public:
    VANTRY_CLASS_ALLOCATION

    /// A container whose package is made by `commit`.
    ///
    /// \param metadata          gets the package; may be empty, and then none
    ///                          is made
    /// \param essenceContainer  label of the container (SMPTE RP 224)
    /// \param rate              edit units per second
    /// \param bufferSource      gives the bytes of the clip in place of the
    ///                          analyzers, whose own bytes are dropped; may be
    ///                          empty
    /// \param clipSize          bytes of the clip, 0 when they aren't known
    Wrapper(Templates::SharedPtr<Metadata::PartitionMetadata> metadata, Types::UniversalLabel const & essenceContainer,
            Templates::Rational<int> const & rate, Templates::SharedPtr<DataIO::BufferSliceSource> bufferSource,
            UInt64 clipSize);

    /// A container of a package that is there, with its tracks and descriptor.
    ///
    /// \param package  lent; it outlives the container
    Wrapper(Metadata::Structural::SourcePackage * package, Types::UniversalLabel const & essenceContainer,
            Templates::Rational<int> const & rate, Templates::SharedPtr<DataIO::BufferSliceSource> bufferSource,
            UInt64 clipSize);

    Wrapper(Wrapper const &) = delete;
    Wrapper & operator=(Wrapper const &) = delete;
    ~Wrapper();

    /// Adds an analyzer. The first one gives the time code. The wrapper counts
    /// the clips of a kind.
    ///
    /// \throws Exceptions::InvalidElement for a system analyzer.
    /// \throws Exceptions::IndexOutOfBounds when there are too many of its
    ///         kind.
    void addAnalyzer(Templates::SharedPtr<EssenceAnalyzer> analyzer);

    /// The same with byte 15 of the key, below 128; from 128 on the wrapper
    /// counts.
    void addAnalyzer(Templates::SharedPtr<EssenceAnalyzer> analyzer, unsigned char elementNumber);

    /// What the buffer source and the analyzers are fed from: once these have
    /// come to an end, the rest of it is read, so that it passes on what it
    /// holds.
    ///
    /// \param blockSize  bytes that are asked for at a time
    void demultiplexerSource(Templates::SharedPtr<DataIO::SliceSource> source, unsigned int blockSize);

    /// What follows a clip starts on a line of this grid, in bytes, beside
    /// those that were asked for before and by analyzers. With 0 there is no
    /// grid any more.
    void kagSize(unsigned int size);

    /// Number of the next analyzer's first track or, when it is in use by now,
    /// that of the last one's; the builder then goes on by 256.
    unsigned int nextBaseTrackID() const;

    /// \return false for 0 and when the number is in use; nothing changes then
    bool nextBaseTrackID(unsigned int trackID);

    /// The time code of the first edit unit.
    ///
    /// \param override  it goes ahead of that of the essence
    void defaultStartTimecode(bool override, unsigned char hours, unsigned char minutes, unsigned char seconds,
                              unsigned char frames);

    /// Whether the package gets a track of time code; so it is at first.
    void generateTimecodeTrack(bool generate);

    /// The time code track counts on where the time code of the essence jumps.
    void suppressTimecodeDiscontinuities(bool suppress);

    /// Has the analyzers make their metadata and gives the container.
    ///
    /// \throws Exceptions::InvalidFormat when an analyzer's essence is invalid
    ///         and when essence that isn't stored in its order is there twice
    ///         or has another rate than the container.
    Templates::auto_ptr<Source> commit();

private:
    class Impl;
    Impl * impl_;
};

}
}}
