#include "GenericContainer/ContainerBuilder.h"

#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidValue.h"
#include "GenericContainer/Multiplexer/Mux.h"
#include "MXFIO/EssenceUtils.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/CreateSet.h"
#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Platform/WideLiteral.h"
#include "Types/Factories/TimeStamp.h"
#include "Types/Factories/UID.h"
#include "Types/Rational.h"
#include "Types/UTF16String.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

namespace Vantry { namespace GenericContainer {

namespace {

using Types::Factories::UID;

// The tracks of an analyzer count up from its first.
unsigned int const TRACKS_OF_ANALYZER = 256;

unsigned int const NO_GRID = 1;

UID::MaterialType materialType(std::size_t pictures, std::size_t sounds, std::size_t data)
{
    if (pictures != 0)
        return pictures == 1 ? UID::MATERIAL_SINGLE_PICTURE : UID::MATERIAL_SEVERAL_PICTURES;
    if (sounds != 0)
        return sounds == 1 ? UID::MATERIAL_SINGLE_SOUND : UID::MATERIAL_SEVERAL_SOUNDS;
    if (data != 0)
        return data == 1 ? UID::MATERIAL_SINGLE_DATA : UID::MATERIAL_SEVERAL_DATA;
    return UID::MATERIAL_NOT_IDENTIFIED;
}

}

ContainerBuilder::ContainerBuilder(Templates::SharedPtr<Metadata::PartitionMetadata> metadata, Package * package,
                                   Types::UniversalLabel const & essenceContainer,
                                   Templates::Rational<int> const & packageRate, Types::UMID32 const * packageUID) :
    data_(std::move(metadata), packageRate, NO_GRID, essenceContainer, package),
    nextBaseTrackID_(TRACKS_OF_ANALYZER),
    temporalReordering_(false)
{
    if (packageUID != nullptr)
        packageUID_ = *packageUID;
}

ContainerBuilder::~ContainerBuilder() = default;

bool ContainerBuilder::nextBaseTrackID(unsigned int trackID)
{
    bool const isFree = trackIDs_.count(trackID) == 0;
    if (isFree)
        nextBaseTrackID_ = trackID;
    return isFree;
}

void ContainerBuilder::kagSize(unsigned int size)
{
    UInt64 const common = std::lcm(UInt64(data_.kagSize), UInt64(size));
    VANTRY_CHECK(common <= std::numeric_limits<UInt32>::max(), InvalidValue, "The KAG sizes have no common multiple");
    data_.kagSize = static_cast<UInt32>(common);
}

void ContainerBuilder::checkCount(Kind kind, CountChecks const & checks) const
{
    VANTRY_CHECK_TEXT(preEntries_[kind].size() <= Multiplexer::Mux::MAXIMUM_ITEM_COUNT, checks[kind].condition,
                      IndexOutOfBounds, checks[kind].message);
}

void ContainerBuilder::add(Kind kind, PreEntry const & preEntry)
{
    preEntries_[kind].push_back(preEntry);
}

unsigned int ContainerBuilder::takeTrackID(EssenceAnalyzer const & analyzer)
{
    while (trackIDs_.count(nextBaseTrackID_) != 0)
        nextBaseTrackID_ += TRACKS_OF_ANALYZER;
    trackIDs_[nextBaseTrackID_] = &analyzer;
    return nextBaseTrackID_;
}

void ContainerBuilder::offerTimecodeMaster(EssenceAnalyzer & analyzer)
{
    if (data_.timecodeMaster == nullptr)
        data_.timecodeMaster = &analyzer;
}

void ContainerBuilder::createPackage()
{
    if (data_.partitionMetadata.get() == nullptr)
        return;

    Metadata::PartitionMetadata & metadata = *data_.partitionMetadata;
    Metadata::Structural::ContentStorage * const contentStorage =
        Metadata::Structural::findPreface(metadata).contentStorage();
    VANTRY_CHECK(contentStorage != 0, InvalidFormat, "Preface has no ContentStorage");

    auto & package = Metadata::Structural::createSet<Package>(
        metadata, Metadata::Structural::StructuralMetadataKeys::sourcePackage());
    Types::UMID32 const identifier = packageUID();
    Types::UTF16String const name(Platform::wide(u"Source Package").text);
    Types::Timestamp const now = Types::Factories::TimeStamp::getCurrentDate();
    package.packageUID(&identifier);
    package.packageName(&name);
    package.packageCreationDate(&now);
    package.packageModifiedDate(&now);
    contentStorage->appendPackage(&package);
    data_.sourcePackage = &package;
    if (analyzersCount() > 1)
        createMultipleDescriptor(package);
}

void ContainerBuilder::createMultipleDescriptor(Package & package) const
{
    auto & descriptor = Metadata::Structural::createSet<Metadata::Structural::MultipleDescriptor>(
        *data_.partitionMetadata, Metadata::Structural::StructuralMetadataKeys::multipleDescriptor());
    Types::Rational const sampleRate(data_.packageRate.numerator(), data_.packageRate.denominator());
    descriptor.sampleRate(&sampleRate);
    descriptor.essenceContainer(&data_.essenceContainerUL);
    package.descriptor(&descriptor);
}

std::size_t ContainerBuilder::analyzersCount() const
{
    return std::accumulate(preEntries_.begin(), preEntries_.end(), std::size_t(0),
                           [](std::size_t sum, PreEntries const & kind) { return sum + kind.size(); });
}

Types::UMID32 ContainerBuilder::packageUID() const
{
    if (packageUID_)
        return *packageUID_;

    std::size_t const pictures = preEntries(ANALYZER_PICTURE).size();
    std::size_t const sounds = preEntries(ANALYZER_SOUND).size();
    std::size_t const data = preEntries(ANALYZER_DATA).size();
    bool const isMixed = !preEntries(ANALYZER_COMPOUND).empty() || (pictures != 0) + (sounds != 0) + (data != 0) > 1;
    UID::MaterialType const type = isMixed ? UID::MATERIAL_MIXED : materialType(pictures, sounds, data);
    return UID::generateBasicUMID(type, UID::MNMI_SMPTE, UID::INSTANCE_RANDOM, UID::TIME_SNAP_VERSION_1, 0);
}

void ContainerBuilder::prepare(EssenceAnalyzer & analyzer) const
{
    analyzer.editRate(data_.packageRate);
    bool const isValid = analyzer.preload();
    VANTRY_CHECK(isValid, InvalidFormat, "The essence format is invalid");
}

void ContainerBuilder::checkTemporalReordering(PreEntry const & preEntry)
{
    VANTRY_CHECK(temporalReordering_ == false, InvalidFormat,
                 "Trying to set two sources with temporal reordoring to the same generic container. MXF only allows "
                 "for one source with temporal reordoring.");
    VANTRY_CHECK_TEXT(preEntry.analyzer->editRate() == data_.packageRate, "preEntry.analyzer -> editRate () == rate_",
                      InvalidFormat,
                      "Trying to set an essence analyzer with temporal reordoring and with editRate different from "
                      "the content package.");
    VANTRY_CHECK_TEXT(!preEntry.temporalOffset, "preEntry.temporalOffset.numerator () == 0", InvalidFormat,
                      "A source with temporal reordoring must start at offset zero to the essence container.");
    temporalReordering_ = true;
}

KLV::Key ContainerBuilder::describe(PreEntry const & preEntry, unsigned int trackNumber) const
{
    if (data_.partitionMetadata.get() != nullptr && data_.sourcePackage != nullptr)
        preEntry.analyzer->setMetadata(*data_.partitionMetadata, data_.sourcePackage, trackNumber, preEntry.trackID);
    return preEntry.analyzer->proposeKey(MXFIO::trackNumber2Key(trackNumber));
}

unsigned int trackNumberOf(unsigned char itemType, EssenceAnalyzer const & analyzer, std::size_t count,
                           unsigned char number)
{
    return static_cast<unsigned int>(itemType) << 24 | static_cast<unsigned int>(count & 0xFF) << 16 |
           static_cast<unsigned int>(analyzer.essenceElementType()) << 8 | number;
}

}}
