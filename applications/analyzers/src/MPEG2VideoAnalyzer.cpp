#include "Analyzers/MPEG2VideoAnalyzer.h"

#include "BlackPicture.h"
#include "Exceptions/InvalidFormat.h"
#include "GenericContainer/EditUnit.h"
#include "IndexTables/IndexEntry.h"
#include "MPEG2VideoDescription.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/MPEG2VideoDescriptor.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"

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

// SMPTE 381M. The label is that of a stream with the stream identifier E0h, of
// which five bits count.
ElementCoding const CODING = {0x15,
                              0x05,
                              {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x02, //
                               0x0D, 0x01, 0x03, 0x01, 0x02, 0x04, 0x60, 0x01},
                              15};

}

class MPEG2VideoAnalyzer::Impl
{
public:
    explicit Impl(Templates::SharedPtr<DataIO::SliceSource> source) : stream(std::move(source)) {}

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
    UInt64 maximumToSkip = DEFAULT_SKIP;
    Rate rate;
    bool hasPredicted = false;
    std::list<CodedFrame> frames;
    PictureGroups groups;
    PictureHeader first;
    std::optional<GroupHeader> group;
    DataIO::Slice sequenceHeader;
    DataIO::Slice black;
    UInt64 editUnits = 0;
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
    ElementAnalyzer(CODING, wrapKind), impl_(std::make_unique<Impl>(std::move(source)))
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

bool MPEG2VideoAnalyzer::containsTemporalDependencies() const
{
    return impl_->hasPredicted;
}

Utils::TimeCode MPEG2VideoAnalyzer::currentTimeCode()
{
    if (!preload() || !impl_->group)
        return Utils::TimeCode();

    Utils::TimeCode const start = impl_->group->timeCode(impl_->rate);
    return start.isDefined()
               ? Utils::TimeCode(start.frameRate(), static_cast<Int64>(start.toFrameCounter() + impl_->groups.frames()),
                                 start.dropFrame())
               : start;
}

bool MPEG2VideoAnalyzer::done()
{
    return impl_->isDone();
}

void MPEG2VideoAnalyzer::describe(EssenceMetadata & metadata)
{
    auto & video = metadata.describe<MPEG2VideoDescriptor>(
        Metadata::Structural::StructuralMetadataKeys::mpeg2VideoDescriptor(),
        Metadata::Structural::DataDefinitionULs::picture(), universalLabel(), impl_->rate);
    describeVideo(video, impl_->stream.format(), impl_->first, impl_->hasPredicted);
    describeGroups(video, impl_->groups);
    impl_->descriptor = &video;
}

void MPEG2VideoAnalyzer::complete(EssenceMetadata & metadata)
{
    metadata.finish(impl_->editUnits, impl_->editUnits);
    describeGroups(*impl_->descriptor, impl_->groups);
}

}}
