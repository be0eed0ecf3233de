#pragma once

#include "GenericContainer/ContainerData.h"
#include "Types/UMID32.h"

#include <array>
#include <optional>

namespace Vantry {
namespace Metadata {
class PartitionMetadata;
}

namespace GenericContainer {

/// What the builders of frame-wrapped and of clip-wrapped containers have in
/// common: analyzers by their kinds, numbers of tracks, the package.
class ContainerBuilder
{
public:
    using Kind = EssenceAnalyzerType;

    /// An analyzer that waits for its place in the container.
    struct PreEntry
    {
        Templates::SharedPtr<EssenceAnalyzer> analyzer;
        bool fill;
        Templates::Rational<Int64> temporalOffset;
        unsigned char elementNumber;
        unsigned int trackID;
    };
    using PreEntries = Templates::list<PreEntry>;

    /// Texts of the check that there aren't too many analyzers of a kind.
    struct CountCheck
    {
        char const * condition;
        char const * message;
    };
    using CountChecks = std::array<CountCheck, ANALYZER_DATA + 1>;

    /// The one from which on the builder counts the elements.
    static constexpr unsigned char NO_ELEMENT_NUMBER = 128;

    /// \param metadata    may be empty
    /// \param package     lent; may be null
    /// \param packageUID  identifies the package that is made; may be null
    ContainerBuilder(Templates::SharedPtr<Metadata::PartitionMetadata> metadata,
                     Metadata::Structural::SourcePackage * package, Types::UniversalLabel const & essenceContainer,
                     Templates::Rational<int> const & packageRate, Types::UMID32 const * packageUID);

    ContainerData & data() { return data_; }
    ContainerData const & data() const { return data_; }
    PreEntries const & preEntries(Kind kind) const { return preEntries_[kind]; }

    /// Number of the track of the last analyzer; of the first, as long as
    /// there is none.
    unsigned int nextBaseTrackID() const { return nextBaseTrackID_; }

    /// \return false when the number is in use
    bool nextBaseTrackID(unsigned int trackID);

    /// Takes a further grid into the grid of the container.
    ///
    /// \throws Exceptions::InvalidValue when lines would lie too far apart.
    void kagSize(unsigned int size);

protected:
    ~ContainerBuilder();

    /// \throws Exceptions::IndexOutOfBounds when the next one would be too
    ///         many.
    void checkCount(Kind kind, CountChecks const & checks) const;

    /// Adds an analyzer behind those of its kind.
    void add(Kind kind, PreEntry const & preEntry);

    /// A number that no track has, for an analyzer.
    unsigned int takeTrackID(EssenceAnalyzer const & analyzer);

    /// Makes the analyzer the one that gives the time code, unless there is
    /// one.
    void offerTimecodeMaster(EssenceAnalyzer & analyzer);

    /// Makes the package, where there is metadata to hold it.
    void createPackage();

    /// Tells an analyzer the rate and has it read ahead.
    ///
    /// \throws Exceptions::InvalidFormat when the essence is invalid.
    void prepare(EssenceAnalyzer & analyzer) const;

    /// Allows one analyzer with pictures in another order, at the rate of the
    /// container and from its start.
    ///
    /// \throws Exceptions::InvalidFormat otherwise.
    void checkTemporalReordering(PreEntry const & preEntry);

    /// Has the analyzer make its metadata, and returns the key of its
    /// elements.
    KLV::Key describe(PreEntry const & preEntry, unsigned int trackNumber) const;

private:
    using Package = Metadata::Structural::SourcePackage;

    void createMultipleDescriptor(Package & package) const;
    std::size_t analyzersCount() const;
    Types::UMID32 packageUID() const;

    ContainerData data_;
    std::optional<Types::UMID32> packageUID_;
    unsigned int nextBaseTrackID_;
    Templates::map<unsigned int, EssenceAnalyzer const *> trackIDs_;
    std::array<PreEntries, ANALYZER_DATA + 1> preEntries_;
    bool temporalReordering_;
};

/// The track number of an analyzer's elements: bytes 12 to 15 of their key.
///
/// \param itemType  byte 12
/// \param count     how many elements of the kind there are
/// \param number    which one this is
unsigned int trackNumberOf(unsigned char itemType, EssenceAnalyzer const & analyzer, std::size_t count,
                           unsigned char number);

}
}
