#pragma once

#include "EditRate.h"
#include "EditUnitCount.h"
#include "IndexSurvey.h"
#include "MetadataTree.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

namespace Vantry { namespace Application {

class FileLayout;
class Warnings;

/// What metadata claim of an essence container.
struct ContainerClaim
{
    unsigned int indexSID = 0;
    std::optional<EditRate> editRate;
    std::optional<UInt64> duration; // in edit units

    /// Of the tracks that the essence is of.
    std::vector<unsigned int> trackNumbers;

    /// Neither picture nor sound, but such as timed text.
    bool isData = false;

    /// None when no label tells.
    std::optional<Wrapping> wrapping;

    /// Of uncompressed sound; bytes of a sample of all channels, or 0.
    UInt32 blockAlign = 0;
    std::optional<EditRate> samplingRate;
};

/// Compares what metadata and index claim of the essence containers with what
/// the file has of them, in the form that machines get.
class ContainerReport
{
public:
    using Json = nlohmann::ordered_json;

    /// All is lent.
    ContainerReport(FileLayout const & layout, StreamIndexes const & indexes, MetadataTree const & tree,
                    Warnings & warnings);

    /// By body SID.
    Json containers() const;

private:
    void claimAnyStream(std::map<unsigned int, ContainerClaim> & claims) const;
    Json container(unsigned int bodySID, ContainerClaim const & claim) const;
    std::optional<UInt64> count(EssenceStream const & stream, StreamIndex const & index, ContainerClaim const & claim,
                                Wrapping wrapping, std::optional<FirstPacket> const & first) const;
    std::optional<UInt64> countClip(FirstPacket const & clip, StreamIndex const & index, ContainerClaim const & claim,
                                    unsigned int bodySID) const;
    void findFaults(unsigned int bodySID, ContainerClaim const & claim, StreamIndex const & index,
                    std::optional<UInt64> readable) const;

    FileLayout const & layout_;
    StreamIndexes const & indexes_;
    MetadataTree const & tree_;
    Warnings & warnings_;
};

/// The claims of a file by body SID.
std::map<unsigned int, ContainerClaim> readClaims(MetadataTree const & tree);

/// What the only file package claims of essence that may be anywhere; none when
/// there is no such package, or several.
std::optional<ContainerClaim> readOnlyClaim(MetadataTree const & tree);

}}
