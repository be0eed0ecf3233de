#include "Analyzers/DVAnalyzer.h"

#include "DVFormat.h"
#include "DataIO/Chain.h"
#include "DataIO/SliceReader.h"
#include "Exceptions/InvalidFormat.h"
#include "GenericContainer/EditUnit.h"
#include "Metadata/Structural/CDCIEssenceDescriptor.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Raster.h"
#include "Types/Int32.h"
#include "Types/Rational.h"
#include "Types/SignalStandard.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/UniversalLabel.h"

#include <string>
#include <utility>

namespace Vantry { namespace Analyzers {

using Metadata::Structural::CDCIEssenceDescriptor;
using Rate = Templates::Rational<int>;

namespace {

// SMPTE 383M; byte 14 of the label tells the format.
ElementCoding const CODING = {0x18,
                              0x01,
                              {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x01, //
                               0x0D, 0x01, 0x03, 0x01, 0x02, 0x02, 0x7F, 0x01},
                              15};
int const FORMAT_BYTE = 14;

// Values of SMPTE 377M, annex E.
UInt8 const FULL_FRAME = 0;
UInt8 const SEPARATE_FIELDS = 1;

void describePicture(CDCIEssenceDescriptor & picture, DVFormat const & format, bool isWide)
{
    using Picture = CDCIEssenceDescriptor;
    unsigned char const coding[16] = {0x06,
                                      0x0E,
                                      0x2B,
                                      0x34,
                                      0x04,
                                      0x01,
                                      0x01,
                                      0x01,
                                      0x04,
                                      0x01,
                                      0x02,
                                      0x02,
                                      0x02,
                                      format.coding[0],
                                      format.coding[1]};
    // Where fields are separate, heights are those of a field.
    unsigned int const height = format.height / (format.isProgressive ? 1 : 2);
    describeSize(picture, format.width, height, format.width, height);
    put(picture, &Picture::pictureEssenceCoding, coding);
    put(picture, &Picture::signalStandard, format.signalStandard);
    put(picture, &Picture::frameLayout, format.isProgressive ? FULL_FRAME : SEPARATE_FIELDS);
    for (unsigned int i = 0; i < 2; ++i)
        picture.addVideoLineMap(i, format.lines[i]);
    if (!format.isProgressive)
        put(picture, &Picture::fieldDominance, UInt8(1));
    put(picture, &Picture::aspectRatio, isWide ? 16 : 4, isWide ? 9 : 3);
    put(picture, &Picture::horizontalSubsampling, format.horizontalSubsampling);
    put(picture, &Picture::verticalSubsampling, format.verticalSubsampling);
    put(picture, &Picture::colorSiting, format.colorSiting);
    describeEightBits(picture);
}

}

class DVAnalyzer::Impl
{
public:
    explicit Impl(Templates::SharedPtr<DataIO::SliceSource> source) : reader(std::move(source)) {}

    bool load()
    {
        if (format != nullptr)
            return true;
        Templates::auto_ptr<DataIO::Slice> head = reader.read(DVHeaders::SIZE);
        DVHeaders const headers(*head);
        reader.unget(head);
        if (!headers.areWhole())
            return false;

        format = headers.format();
        if (format == nullptr)
            throw Exceptions::InvalidFormat("DV has a signal of no known type", __FILE__, __LINE__);
        isWide = headers.isWide();
        start = headers.timeCode();
        return true;
    }

    // False at the end.
    bool readFrame(DataIO::Chain & frame)
    {
        UInt64 const offset = reader.absoluteOffset();
        reader.read(format->frameSize, frame);
        UInt64 const size = frame.data_size();
        if (size == 0)
            return false;

        DVHeaders const headers(*frame.makeSlice(0, DVHeaders::SIZE));
        if (size >= DVHeaders::SIZE && !headers.areWhole())
            fail("has no frame", offset);
        if (size < format->frameSize)
            fail("is cut off in a frame", reader.absoluteOffset());
        if (headers.format() != format)
            fail("has a frame of another format than the first", offset);
        ++frames;
        return true;
    }

    DataIO::SliceReader reader;
    DVFormat const * format = nullptr;
    bool isWide = false;
    Utils::TimeCode start;
    UInt64 frames = 0;

private:
    [[noreturn]] static void fail(std::string const & what, UInt64 offset)
    {
        std::string const text = "DV " + what + " at byte " + std::to_string(offset);
        throw Exceptions::InvalidFormat(text.c_str(), __FILE__, __LINE__);
    }
};

DVAnalyzer::DVAnalyzer(Templates::SharedPtr<DataIO::SliceSource> source, Labels::WrapKind wrapKind) :
    ElementAnalyzer(CODING, wrapKind), impl_(std::make_unique<Impl>(std::move(source)))
{
}

DVAnalyzer::~DVAnalyzer() = default;

bool DVAnalyzer::isDV(DataIO::Slice const & head)
{
    return DVHeaders(head).areWhole();
}

Rate DVAnalyzer::editRate()
{
    return impl_->format != nullptr ? impl_->format->rate() : Rate();
}

void DVAnalyzer::editRate(Rate const &) {}

bool DVAnalyzer::preload()
{
    return impl_->load();
}

bool DVAnalyzer::nextEditUnit(GenericContainer::EditUnit & unit)
{
    unit.valid = preload() && impl_->readFrame(unit.data);
    if (unit.valid)
        unit.duration = Rate(1) / editRate();
    return unit.valid;
}

Types::UniversalLabel DVAnalyzer::universalLabel()
{
    Types::UniversalLabel label = ElementAnalyzer::universalLabel();
    if (preload())
        label[FORMAT_BYTE] = impl_->format->container;
    return label;
}

bool DVAnalyzer::isCBE() const
{
    return true;
}

unsigned int DVAnalyzer::boundedEditUnitSize() const
{
    return impl_->format != nullptr ? impl_->format->frameSize : 0;
}

Utils::TimeCode DVAnalyzer::currentTimeCode()
{
    if (!preload() || !impl_->start.isDefined())
        return Utils::TimeCode();
    return Utils::TimeCode(impl_->start.frameRate(), static_cast<Int64>(impl_->start.toFrameCounter() + impl_->frames),
                           impl_->start.dropFrame());
}

bool DVAnalyzer::done()
{
    return impl_->reader.endOfStream();
}

void DVAnalyzer::describe(EssenceMetadata & metadata)
{
    auto & picture = metadata.describe<CDCIEssenceDescriptor>(
        Metadata::Structural::StructuralMetadataKeys::cdciEssenceDescriptor(),
        Metadata::Structural::DataDefinitionULs::picture(), universalLabel(), editRate());
    describePicture(picture, *impl_->format, impl_->isWide);
}

void DVAnalyzer::complete(EssenceMetadata & metadata)
{
    metadata.finish(impl_->frames, impl_->frames);
}

}}
