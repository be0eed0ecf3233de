#include "Analyzers/MPEG2VideoAnalyzer.h"

#include "Analyzers/EssenceMetadata.h"
#include "BlackPicture.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidValue.h"
#include "GenericContainer/EditUnit.h"
#include "IndexTables/IndexEntry.h"
#include "MPEG2VideoDescription.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/MPEG2VideoDescriptor.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Types/UniversalLabel.h"

#include <list>
#include <string>
#include <utility>

namespace Vantry { namespace Analyzers {

using GenericContainer::EditUnit;
using Metadata::Structural::MPEG2VideoDescriptor;
using Rate = Templates::Rational<int>;

namespace {

UInt64 const DEFAULT_SKIP = 65536;

// So many intra pictures at the start make a stream of intra pictures.
std::size_t const ENOUGH_FRAMES = 3;

// Bytes 12 and 14 of element keys (SMPTE 381M).
unsigned char const PICTURE_ITEM = 0x15;
unsigned char const FRAME_WRAPPED = 0x05;
unsigned char const CLIP_WRAPPED = 0x06;

// Undefined when the header has numbers that no time of day has.
Utils::TimeCode startTimeCode(GroupHeader const & group, Rate const & rate)
try
{
    // From 50 frames per second on a time code counts pairs, the header not.
    auto const frameRate = static_cast<unsigned char>((rate.numerator() + rate.denominator() - 1) / rate.denominator());
    bool const inPairs = frameRate == 50 || frameRate == 60;
    auto const frames = static_cast<unsigned char>(inPairs ? group.pictures / 2 : group.pictures);
    return Utils::TimeCode(frameRate, group.hours, group.minutes, group.seconds, frames, group.dropFrame,
                           inPairs && group.pictures % 2 != 0);
}
catch (Exceptions::InvalidValue const &)
{
    return Utils::TimeCode();
}

}

class MPEG2VideoAnalyzer::Impl
{
public:
    Impl(Templates::SharedPtr<DataIO::SliceSource> source, Labels::WrapKind wrapping) :
        stream(std::move(source)), wrapKind(wrapping)
    {
    }

    bool load()
    {
        if (isLoaded)
            return hasFrames;

        isLoaded = true;
        if (!stream.start(maximumToSkip))
            return false;
        while (!hasPredicted && frames.size() < ENOUGH_FRAMES && readFrame())
            hasPredicted = frames.back().picture.type != PictureType::INTRA;
        hasFrames = !frames.empty();
        if (!hasFrames)
            return false;

        rate = *stream.format().frameRate();
        first = frames.front().picture;
        group = frames.front().group;
        sequenceHeader = *frames.front().data.makeSlice(0, frames.front().sequenceHeaderSize);
        return true;
    }

    bool isDone() { return isLoaded && frames.empty() && stream.ended(); }

    // The frame that comes next, or null.
    CodedFrame * nextFrame()
    {
        if (!load() || (frames.empty() && !readFrame()))
            return nullptr;

        CodedFrame & frame = frames.front();
        if (frame.picture.type != PictureType::INTRA && !hasPredicted)
        {
            std::string const text = "MPEG-2 video has a predicted picture at byte " + std::to_string(frame.offset) +
                                     " after a beginning of intra pictures alone";
            throw Exceptions::InvalidFormat(text.c_str(), __FILE__, __LINE__);
        }
        return &frame;
    }

    VideoStream stream;
    Labels::WrapKind const wrapKind;
    UInt64 maximumToSkip = DEFAULT_SKIP;
    unsigned int bound = 0;
    Rate rate;
    bool hasPredicted = false;
    std::list<CodedFrame> frames;
    PictureGroups groups;
    PictureHeader first;
    std::optional<GroupHeader> group;
    DataIO::Slice sequenceHeader;
    DataIO::Slice black;
    UInt64 editUnits = 0;
    std::unique_ptr<EssenceMetadata> metadata;
    MPEG2VideoDescriptor * descriptor = nullptr;

private:
    bool readFrame()
    {
        frames.emplace_back();
        bool isRead = false;
        try
        {
            isRead = stream.next(frames.back());
        }
        catch (...)
        {
            frames.pop_back();
            throw;
        }
        if (!isRead)
            frames.pop_back();
        return isRead;
    }

    bool isLoaded = false;
    bool hasFrames = false;
};

MPEG2VideoAnalyzer::MPEG2VideoAnalyzer(Templates::SharedPtr<DataIO::SliceSource> source, Labels::WrapKind wrapKind) :
    impl_(std::make_unique<Impl>(std::move(source), wrapKind))
{
}

MPEG2VideoAnalyzer::~MPEG2VideoAnalyzer() = default;

Rate MPEG2VideoAnalyzer::editRate()
{
    return impl_->rate;
}

void MPEG2VideoAnalyzer::editRate(Rate const &) {}

UInt64 MPEG2VideoAnalyzer::maximumToSkip() const
{
    return impl_->maximumToSkip;
}

void MPEG2VideoAnalyzer::maximumToSkip(UInt64 bytes)
{
    impl_->maximumToSkip = bytes;
}

bool MPEG2VideoAnalyzer::preload()
{
    return impl_->load();
}

bool MPEG2VideoAnalyzer::setMetadata(Metadata::PartitionMetadata & metadata,
                                     Metadata::Structural::SourcePackage * package, unsigned int trackNumber,
                                     unsigned int trackID)
{
    if (impl_->metadata || !preload())
        return false;

    auto made = std::make_unique<EssenceMetadata>(metadata, package, trackNumber, trackID, impl_->rate);
    auto & video = made->describe<MPEG2VideoDescriptor>(
        Metadata::Structural::StructuralMetadataKeys::mpeg2VideoDescriptor(),
        Metadata::Structural::DataDefinitionULs::picture(), universalLabel(), impl_->rate);
    describeVideo(video, impl_->stream.format(), impl_->first, impl_->hasPredicted);
    describeGroups(video, impl_->groups);
    impl_->metadata = std::move(made);
    impl_->descriptor = &video;
    return true;
}

bool MPEG2VideoAnalyzer::nextEditUnit(EditUnit & unit)
{
    CodedFrame * const frame = impl_->nextFrame();
    unit.valid = frame != nullptr;
    if (!unit.valid)
        return false;

    PictureGroups::Place const place = impl_->groups.add(*frame);
    unit.data.push_back(frame->data);
    unit.duration = Rate(impl_->rate.denominator(), impl_->rate.numerator());
    unit.flags = place.flags;
    unit.temporalOffset = place.temporalOffset;
    impl_->frames.pop_front();
    ++impl_->editUnits;
    return true;
}

void MPEG2VideoAnalyzer::fillNullEssence(EditUnit & unit)
{
    if (!preload())
        return;
    if (impl_->black.size() == 0)
        impl_->black = *blackPicture(impl_->stream.format());
    for (DataIO::Slice const & part : {impl_->sequenceHeader, impl_->black})
        unit.data.push_back(Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(part)));
    unit.flags = IndexTables::IndexEntry::RANDOM_ACCESS | IndexTables::IndexEntry::SEQUENCE_HEADER;
    unit.temporalOffset = 0;
    ++impl_->editUnits;
}

bool MPEG2VideoAnalyzer::finalize()
{
    if (!impl_->metadata)
        return false;
    impl_->metadata->finish(impl_->editUnits, impl_->editUnits);
    describeGroups(*impl_->descriptor, impl_->groups);
    return true;
}

Types::UniversalLabel MPEG2VideoAnalyzer::universalLabel()
{
    // A stream of the stream identifier E0h, of which five bits count.
    unsigned char const wrapping = impl_->wrapKind == Labels::CLIP ? 0x02 : 0x01;
    unsigned char const bytes[16] = {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x02,
                                     0x0D, 0x01, 0x03, 0x01, 0x02, 0x04, 0x60, wrapping};
    return Types::UniversalLabel(bytes);
}

bool MPEG2VideoAnalyzer::isCBE() const
{
    return false;
}

void MPEG2VideoAnalyzer::boundedEditUnitSize(int size)
{
    impl_->bound = static_cast<unsigned int>(size);
}

unsigned int MPEG2VideoAnalyzer::boundedEditUnitSize() const
{
    return impl_->bound;
}

bool MPEG2VideoAnalyzer::containsTemporalDependencies() const
{
    return impl_->hasPredicted;
}

Utils::TimeCode MPEG2VideoAnalyzer::currentTimeCode()
{
    if (!preload() || !impl_->group)
        return Utils::TimeCode();

    Utils::TimeCode const start = startTimeCode(*impl_->group, impl_->rate);
    return start.isDefined()
               ? Utils::TimeCode(start.frameRate(), static_cast<Int64>(start.toFrameCounter() + impl_->groups.frames()),
                                 start.dropFrame())
               : start;
}

unsigned char MPEG2VideoAnalyzer::itemTypeIdentifier() const
{
    return PICTURE_ITEM;
}

unsigned char MPEG2VideoAnalyzer::essenceElementType() const
{
    return impl_->wrapKind == Labels::CLIP ? CLIP_WRAPPED : FRAME_WRAPPED;
}

unsigned int MPEG2VideoAnalyzer::requiredKAGSize() const
{
    return 1;
}

bool MPEG2VideoAnalyzer::done()
{
    return impl_->isDone();
}

}}
