#pragma once

#include "KLV/Key.h"
#include "Metadata/Structural/Declarations.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Types/UniversalLabel.h"
#include "Utils/TimeCode.h"

namespace Vantry {
namespace Metadata {
class PartitionMetadata;
}

namespace GenericContainer {

struct EditUnit;

/// What an analyzer brings into a content package; in this order items follow
/// each other there (SMPTE 379M).
enum EssenceAnalyzerType : Int32
{
    ANALYZER_SYSTEM = 0,
    ANALYZER_COMPOUND = 1,
    ANALYZER_PICTURE = 2,
    ANALYZER_SOUND = 3,
    ANALYZER_DATA = 4
};

/// Brings essence into a container, one edit unit after the other.
///
/// An application implements it for its kind of essence, derived from the
/// class of the item that it belongs to: SystemAnalyzer, CompoundAnalyzer,
/// PictureAnalyzer, SoundAnalyzer or DataAnalyzer. One that also derives from
/// NullEssenceProvider can fill gaps.
///
/// Calls come in this order:
///
/// - as it is added to the builder of a container: `requiredKAGSize`;
/// - as the builder commits: `editRate` with the rate of the container,
///   `preload`, `containsTemporalDependencies`, `itemTypeIdentifier`,
///   `essenceElementType`, `setMetadata`, `proposeKey`, `isCBE`,
///   `boundedEditUnitSize`, `editRate`;
/// - as the writing of the container is set up: `getPreChargeDuration`,
///   `getDuration` and, from the analyzer that gives the time code, `preload`
///   once more and `currentTimeCode`;
/// - again and again: `getPreChargeDuration`, `nextEditUnit`, `done`;
/// - at the end: `finalize`.
///
/// What an operation throws comes out of the container's operation that called
/// it; the container can't be used further.
class VANTRY_EXPORT EssenceAnalyzer
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~EssenceAnalyzer();

    /// Edit units of the analyzer per second. That may be more than the
    /// container has: several of them then share a content package.
    virtual Templates::Rational<int> editRate() = 0;

    /// Tells the rate of the container, ahead of all else. Whether the
    /// analyzer takes it over is its own matter.
    virtual void editRate(Templates::Rational<int> const & containerRate) = 0;

    /// How many bytes that it can't use the analyzer may pass over in its
    /// input.
    virtual UInt64 maximumToSkip() const = 0;
    virtual void maximumToSkip(UInt64 bytes) = 0;

    /// Reads ahead what it takes to know the format. To be called more than
    /// once, without loss of data.
    ///
    /// \return false when the input isn't of the format
    virtual bool preload() = 0;

    /// Makes the descriptor of the essence and its track.
    ///
    /// \param package      gets both
    /// \param trackNumber  bytes 12 to 15 of the key of the elements
    /// \param trackID      the track's number in the package
    virtual bool setMetadata(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                             unsigned int trackNumber, unsigned int trackID) = 0;

    /// Gives the next edit unit; the caller hands in a fresh one. At the end
    /// of the essence it stays not valid.
    ///
    /// \return whether there was one
    virtual bool nextEditUnit(EditUnit & unit) = 0;

    /// Brings the durations in the metadata up to date, once, at the end.
    virtual bool finalize() = 0;

    /// The label of the essence container that this essence makes (SMPTE RP
    /// 224).
    virtual Types::UniversalLabel universalLabel() = 0;

    /// Whether all edit units have the same size.
    virtual bool isCBE() const = 0;

    /// Sets, and tells, the size in bytes that no edit unit exceeds; 0 when
    /// there is no such size.
    virtual void boundedEditUnitSize(int size) = 0;
    virtual unsigned int boundedEditUnitSize() const = 0;

    /// Whether pictures are stored in another order than they are shown in.
    virtual bool containsTemporalDependencies() const = 0;

    /// The time code of the next edit unit; undefined when the essence has
    /// none.
    virtual Utils::TimeCode currentTimeCode() = 0;

    /// Byte 12 of the key of the elements (SMPTE 379M, 7.1).
    virtual unsigned char itemTypeIdentifier() const = 0;

    /// Byte 14 of the key of the elements (SMPTE 379M, 7.1).
    virtual unsigned char essenceElementType() const = 0;

    /// The KAG size that the essence needs; 1 when it needs none.
    virtual unsigned int requiredKAGSize() const = 0;

    /// Whether no edit unit will come any more.
    virtual bool done() = 0;

    virtual EssenceAnalyzerType essenceAnalyzerType() = 0;

    /// The key that the elements get; here the one that is proposed. The track
    /// number stays that of the proposed key.
    virtual KLV::Key proposeKey(KLV::Key const & key);

    /// Gives the analyzer a descriptor to complete. Does nothing here.
    virtual void customizeDescriptor(Metadata::Structural::FileDescriptor & descriptor);

    /// The duration of all essence in seconds. Here it isn't kept, and not
    /// known: -1/1.
    virtual void setDuration(Templates::Rational<int> const & seconds);
    virtual Templates::Rational<int> getDuration();

    /// How many seconds of essence come ahead of the first edit unit that is
    /// shown. Here it isn't kept, and 0.
    virtual void setPreChargeDuration(Templates::Rational<int> const & seconds);
    virtual Templates::Rational<int> getPreChargeDuration();
};

}
}
