#include "ContainerReport.h"

#include "ElementContent.h"
#include "Exceptions/InvalidValue.h"
#include "GenericContainer/RP224UniversalLabels.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Metadata/Structural/Track.h"
#include "TrackFacts.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UMID32.h"
#include "Types/UniversalLabel.h"
#include "UntiedStream.h"

#include <string_view>

namespace Vantry { namespace Application {

namespace {

namespace Structural = Metadata::Structural;
namespace ULs = Metadata::Structural::StructuralMetadataULs;
using GenericContainer::RP224UniversalLabels;

// SMPTE 381-3 frame wraps AVC too.
int const LAST_BYTE = 15;
unsigned char const FRAME_WRAPPED = 1;

bool isOfAVC(RP224UniversalLabels::Mapping mapping)
{
    return mapping == RP224UniversalLabels::AVC_BYTE_STREAM || mapping == RP224UniversalLabels::AVC_NAL_UNIT_STREAM;
}

/// What a label tells of the wrapping; none for one that isn't known.
std::optional<Wrapping> wrappingOf(Types::UniversalLabel const & label)
{
    try
    {
        auto const info = RP224UniversalLabels::essenceContainerInfo(label);
        if (info.wrapKind == RP224UniversalLabels::FRAME)
            return Wrapping::FRAME;
        if (info.wrapKind == RP224UniversalLabels::CLIP)
            return Wrapping::CLIP;
        if (isOfAVC(info.mapping) && label.rawBuffer()[LAST_BYTE] == FRAME_WRAPPED)
            return Wrapping::FRAME;
        return info.mapping == RP224UniversalLabels::UNKNOWN ? std::nullopt : std::optional<Wrapping>(Wrapping::OTHER);
    }
    catch (Exceptions::InvalidValue const &)
    {
        return std::nullopt;
    }
}

void claimByTracks(Structural::GenericPackage const & package, ContainerClaim & claim)
{
    bool hasPicture = false;
    for (unsigned int i = 0; i < package.tracksCount(); ++i)
    {
        Structural::Track const * const track = package.track(i);
        TrackFacts const facts = track != nullptr ? TrackFacts(*track) : TrackFacts();
        if (!facts.isEssence())
            continue;

        // Pictures rule, else what comes first.
        claim.trackNumbers.push_back(track->trackNumber() != nullptr ? track->trackNumber()->value() : 0);
        bool const isPicture = std::string_view(facts.kind) == "picture";
        if (claim.trackNumbers.size() > 1 && (hasPicture || !isPicture))
            continue;
        hasPicture = isPicture;
        claim.editRate = EditRate::of(facts.editRate);
        claim.duration = facts.duration;
        claim.isData = std::string_view(facts.kind) == "data";
    }
}

void claimByDescriptor(Metadata::MetadataSet const & set, ContainerClaim & claim)
{
    if (auto const * const label = valueOf<Types::UniversalLabel>(set, ULs::essenceContainer()))
        if (!claim.wrapping)
            claim.wrapping = wrappingOf(*label);
    if (auto const * const size = valueOf<Types::UInt16>(set, ULs::blockAlign()))
        claim.blockAlign = size->value();
    if (auto const rate = EditRate::of(valueOf<Types::Rational>(set, ULs::audioSamplingRate())))
        claim.samplingRate = rate;

    std::optional<EditRate> const rate = EditRate::of(valueOf<Types::Rational>(set, ULs::sampleRate()));
    auto const * const duration = valueOf<Types::Length>(set, ULs::containerDuration());
    if (!claim.editRate)
        claim.editRate = rate;
    if (!claim.duration && rate && duration != nullptr && duration->value() >= 0)
        claim.duration = rate->convert(static_cast<UInt64>(duration->value()), *claim.editRate);
}

/// Takes up what a package says of its essence; a package of no file says
/// nothing.
void claimByPackage(MetadataTree const & tree, MetadataTree::Place place, ContainerClaim & claim)
{
    std::vector<MetadataTree::Node> const & nodes = tree.nodes();
    claimByTracks(dynamic_cast<Structural::GenericPackage const &>(*nodes[place].set), claim);
    for (MetadataTree::Place below = place + 1; below < nodes.size() && nodes[below].depth > nodes[place].depth;
         ++below)
        claimByDescriptor(*nodes[below].set, claim);
}

}

std::map<unsigned int, ContainerClaim> readClaims(MetadataTree const & tree)
{
    std::map<unsigned int, ContainerClaim> claims;
    for (MetadataTree::Node const & node : tree.nodes())
    {
        auto const * const data = dynamic_cast<Structural::EssenceContainerData const *>(node.set);
        if (data == nullptr || data->bodySID() == nullptr)
            continue;
        ContainerClaim & claim = claims[data->bodySID()->value()];
        if (data->indexSID() != nullptr)
            claim.indexSID = data->indexSID()->value();

        Structural::GenericPackage const * const package = data->linkedPackage();
        if (package != nullptr && package->instanceUID() != nullptr)
            if (std::optional<MetadataTree::Place> const place = tree.find(*package->instanceUID()))
                claimByPackage(tree, *place, claim);
    }
    return claims;
}

std::optional<ContainerClaim> readOnlyClaim(MetadataTree const & tree)
{
    std::optional<ContainerClaim> claim;
    for (MetadataTree::Place place = 0; place < tree.nodes().size(); ++place)
    {
        auto const * const package = dynamic_cast<Structural::GenericPackage const *>(tree.nodes()[place].set);
        if (package == nullptr || !isFilePackage(*package))
            continue;
        if (claim)
            return std::nullopt;
        claimByPackage(tree, place, claim.emplace());
    }
    return claim;
}

}}
