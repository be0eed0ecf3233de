#include "Analyzers/D10PictureAnalyzer.h"

#include "D10Format.h"
#include "Exceptions/InvalidFormat.h"
#include "GenericContainer/EditUnit.h"
#include "MPEG2VideoDescription.h"
#include "Metadata/Structural/CDCIEssenceDescriptor.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Types/Int32.h"
#include "Types/UInt32.h"

#include <optional>
#include <string>
#include <utility>

namespace Vantry { namespace Analyzers {

using GenericContainer::EditUnit;
using Metadata::Structural::CDCIEssenceDescriptor;
using Rate = Templates::Rational<int>;

namespace {

UInt64 const DEFAULT_SKIP = 65536;

// SMPTE 386M; the stream makes the label whole.
ElementCoding const D10_PICTURE = {0x05,
                                   0x01,
                                   {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x01, //
                                    0x0D, 0x01, 0x03, 0x01, 0x02, 0x01, 0x00, 0x01},
                                   15};

unsigned int const KAG_SIZE = 512;

[[noreturn]] void refuse(CodedFrame const & frame, std::string const & what)
{
    std::string const text = "The picture at byte " + std::to_string(frame.offset) + " " + what;
    throw Exceptions::InvalidFormat(text.c_str(), __FILE__, __LINE__);
}

void check(CodedFrame const & frame, D10Format const & format)
{
    if (frame.picture.type != PictureType::INTRA)
        refuse(frame, "is predicted, and D-10 has intra pictures alone");
    if (frame.picture.structure != PictureStructure::FRAME)
        refuse(frame, "is a field, and D-10 has frames");
    if (!frame.hasSequenceHeader)
        refuse(frame, "has no sequence header ahead of it, as each has in D-10");
    UInt64 const size = frame.data.data_size();
    if (size > format.pictureSize())
        refuse(frame, "has " + std::to_string(size) + " bytes, and D-10 of " +
                          std::to_string(format.megabitsPerSecond()) + " Mb/s takes " +
                          std::to_string(format.pictureSize()) + " at most");
}

}

class D10PictureAnalyzer::Impl
{
public:
    explicit Impl(Templates::SharedPtr<DataIO::SliceSource> source) : stream(std::move(source)) {}

    bool load()
    {
        if (format || isStarted)
            return format.has_value();

        isStarted = true;
        if (stream.start(maximumToSkip))
            nextFrame();
        return format.has_value();
    }

    // The frame that comes next, or null.
    CodedFrame * nextFrame()
    {
        if (next)
            return next.get();

        auto frame = std::make_unique<CodedFrame>();
        if (!stream.next(*frame))
            return nullptr;
        if (!format)
            adopt(*frame);
        check(*frame, *format);
        next = std::move(frame);
        return next.get();
    }

    VideoStream stream;
    UInt64 maximumToSkip = DEFAULT_SKIP;
    std::optional<D10Format> format;
    Rate rate;
    PictureHeader first;
    std::unique_ptr<CodedFrame> next;
    UInt64 editUnits = 0;

private:
    void adopt(CodedFrame const & frame)
    {
        D10Format const found = D10Format::of(stream.format());
        rate = *stream.format().frameRate();
        first = frame.picture;
        format = found;
    }

    bool isStarted = false;
};

D10PictureAnalyzer::D10PictureAnalyzer(Templates::SharedPtr<DataIO::SliceSource> source) :
    ElementAnalyzer(D10_PICTURE, Labels::FRAME), impl_(std::make_unique<Impl>(std::move(source)))
{
}

D10PictureAnalyzer::~D10PictureAnalyzer() = default;

Rate D10PictureAnalyzer::editRate()
{
    return impl_->rate;
}

UInt64 D10PictureAnalyzer::maximumToSkip() const
{
    return impl_->maximumToSkip;
}

void D10PictureAnalyzer::maximumToSkip(UInt64 bytes)
{
    impl_->maximumToSkip = bytes;
}

bool D10PictureAnalyzer::preload()
{
    return impl_->load();
}

void D10PictureAnalyzer::describe(EssenceMetadata & metadata)
{
    auto & picture = metadata.describe<CDCIEssenceDescriptor>(
        Metadata::Structural::StructuralMetadataKeys::cdciEssenceDescriptor(),
        Metadata::Structural::DataDefinitionULs::picture(), universalLabel(), impl_->rate);

    // Heights are those of a field.
    using Picture = CDCIEssenceDescriptor;
    describePicture(picture, impl_->stream.format(), impl_->first);
    put(picture, &Picture::pictureEssenceCoding, impl_->format->codingLabel());
    put(picture, &Picture::displayHeight, impl_->format->shownLines() / 2);
    put(picture, &Picture::displayYOffset, static_cast<Int32>(impl_->format->dataLines() / 2));
}

void D10PictureAnalyzer::complete(EssenceMetadata & metadata)
{
    metadata.finish(impl_->editUnits, impl_->editUnits);
}

bool D10PictureAnalyzer::nextEditUnit(EditUnit & unit)
{
    CodedFrame * const frame = preload() ? impl_->nextFrame() : nullptr;
    unit.valid = frame != nullptr;
    if (!unit.valid)
        return false;

    unit.data.push_back(frame->data);
    unit.duration = Rate(impl_->rate.denominator(), impl_->rate.numerator());
    impl_->next.reset();
    ++impl_->editUnits;
    return true;
}

Types::UniversalLabel D10PictureAnalyzer::universalLabel()
{
    return impl_->format ? impl_->format->containerLabel() : ElementAnalyzer::universalLabel();
}

bool D10PictureAnalyzer::isCBE() const
{
    return true;
}

unsigned int D10PictureAnalyzer::boundedEditUnitSize() const
{
    return impl_->format ? impl_->format->pictureSize() : 0;
}

Utils::TimeCode D10PictureAnalyzer::currentTimeCode()
{
    CodedFrame const * const frame = preload() ? impl_->nextFrame() : nullptr;
    return frame != nullptr && frame->group ? frame->group->timeCode(impl_->rate) : Utils::TimeCode();
}

unsigned int D10PictureAnalyzer::requiredKAGSize() const
{
    return KAG_SIZE;
}

bool D10PictureAnalyzer::done()
{
    return impl_->format && !impl_->next && impl_->stream.ended();
}

}}
