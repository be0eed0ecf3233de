#pragma once

#include "MXFIO/ContentStorageProfile.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace Metadata { namespace Structural {
class GenericPackage;
class Preface;
class TimelineTrack;
}}

namespace MXFIO {

class Reader;
class SystemItemKLVPacketListener;
struct ElementEditUnit;

/// In which order an EssenceReader gives what it reads.
enum IndexTableHandlingMode : int
{
    /// Tracks take turns by their time; each read goes to where its essence
    /// lies.
    INDEX_TABLE_USED = 0,

    /// As the essence is stored: no read goes anywhere else.
    INDEX_TABLE_IGNORED = 1
};

/// Plays a package: reads the essence of all its tracks in step, on one time
/// line in seconds.
///
/// A material package leads to its containers through the clips of its tracks;
/// a file package has a container of its own. Essence that isn't in the file
/// is passed over, and its time with it. One thread at a time.
class VANTRY_EXPORT EssenceReader
{
public:
    VANTRY_CLASS_ALLOCATION

    /// What a read gives.
    using ElementEditUnit = MXFIO::ElementEditUnit;

    /// Opens the containers and stands at the start.
    ///
    /// \param reader   lent; it outlives this one
    /// \param preface  lent with its metadata, as `package` is
    /// \param package  a material package, or a source package with a file
    ///                 descriptor
    /// \param loadRIP  load the random index pack if there is none yet
    /// \param emulateFrameWrapping  give a clip in one packet in pieces, each
    ///                 an edit unit of its track long; see
    ///                 `changeMasterEditRate`
    /// \param profile  what the application knows; may be empty
    /// \throws Exceptions::InvalidStructure when a track of essence holds
    ///         something else than source clips.
    /// \throws Exceptions::InvalidValue when no track of the package has
    ///         essence.
    /// \throws others as ContentStorageReader and its `elementReader`.
    EssenceReader(Reader & reader, Metadata::Structural::Preface const & preface,
                  Metadata::Structural::GenericPackage const & package, bool loadRIP, bool emulateFrameWrapping,
                  Templates::SharedPtr<ContentStorageProfile> const & profile);
    EssenceReader(EssenceReader const &) = delete;
    EssenceReader & operator=(EssenceReader const &) = delete;
    ~EssenceReader();

    Metadata::Structural::GenericPackage const & package() const;

    /// Seconds that the package plays; -1/1 when that isn't known. In a file
    /// that grows it is how much the container holds by the last refresh.
    Templates::Rational<Int64> duration() const;

    /// Seconds that can be found, as far as index and bytes reach that are
    /// there. As long as neither tells, it is what the container claims to
    /// last; -1/1 when that isn't known either.
    Templates::Rational<Int64> indexableDuration() const;

    /// The time of the track that is furthest behind, in seconds: no track has
    /// anything to read ahead of it. At the end, where the last track ended.
    Templates::Rational<Int64> position() const;

    /// The tracks of essence, in the order in which they take turns: that of
    /// their track numbers in the file.
    Templates::vector<Metadata::Structural::TimelineTrack const *> essenceTracks() const;

    /// Their track identifiers.
    Templates::vector<unsigned int> essenceTrackIDs() const;

    IndexTableHandlingMode indexTableHandlingMode() const;

    /// \return false, and nothing changes, for INDEX_TABLE_IGNORED in a
    ///         package that needs more than one container
    bool indexTableHandlingMode(IndexTableHandlingMode mode);

    /// Has a listener get the packets of system items that reads pass; lent.
    ///
    /// \throws Exceptions::InvalidState when there is one already.
    void registerKLVPacketListener(SystemItemKLVPacketListener * listener);
    void unregisterKLVPacketListener();

    /// Sets how long the turn of a track is, and with it the pieces of clips
    /// that are given as if frame wrapped. At first it is the longest period
    /// that the edit units of all tracks are multiples of. The position stays.
    ///
    /// \param editRate  turns per second
    /// \return false, and nothing changes, when a clip in one packet that is
    ///         given in pieces starts within one, or ends within one that has
    ///         more essence behind it
    /// \throws Exceptions::InvalidValue when the rate isn't above 0.
    bool changeMasterEditRate(Templates::Rational<int> const & editRate);

    void setContentStorageProfile(Templates::SharedPtr<ContentStorageProfile> const & profile);

    /// Goes to the start.
    ///
    /// \return false when a track can't be read there
    bool rewind();

    /// Goes to a time: each track to the edit unit that the time lies in.
    ///
    /// \return false when a track has nothing at that time, or is somewhere
    ///         else now since nothing tells where it has. Other tracks stand
    ///         right.
    bool seek(Templates::Rational<Int64> const & seconds);

    /// Reads what is next.
    ///
    /// \param searchLimit  bytes that may lie ahead of a key
    /// \param unit  what was read, with the identifier of its track in this
    ///              package; without a packet at the end
    /// \return whether there is a packet
    /// \throws Exceptions::IOError when the source fails.
    bool nextElementEditUnit(UInt64 searchLimit, ElementEditUnit & unit);

    /// Takes up what a file has that grows. Tracks that had ended go on where
    /// they did.
    void refreshSource();

private:
    class Impl;
    Impl * impl_;
};

}
}
