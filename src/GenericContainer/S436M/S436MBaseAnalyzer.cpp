#include "GenericContainer/S436M/S436MBaseAnalyzer.h"

#include "DataIO/SliceReader.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/NotEnoughData.h"
#include "GenericContainer/EditUnit.h"
#include "GenericContainer/MetadataBuilder.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/GenericDataEssenceDescriptor.h"
#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Platform/BigEndian.h"
#include "Platform/WideLiteral.h"
#include "Types/Length.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"

#include <memory>
#include <utility>

namespace Vantry { namespace GenericContainer { namespace S436M {

using DataIO::Slice;
using Metadata::Structural::GenericDataEssenceDescriptor;
using Metadata::Structural::MultipleDescriptor;
using Metadata::Structural::SourcePackage;
using Rate = Templates::Rational<int>;

namespace {

// Byte 12 of element keys (SMPTE 379M).
unsigned char const DATA_ITEM = 0x17;

UInt64 const COUNT_SIZE = 2;

// What stands ahead of each payload, and where its sizes are in there.
UInt64 const HEADER_SIZE = 14;
unsigned int const SAMPLE_COUNT = 4;
unsigned int const ARRAY_COUNT = 6;
unsigned int const ELEMENT_SIZE = 10;

UInt64 payloadSize(Slice const & header)
{
    unsigned char const * const bytes = header.begin();
    UInt64 const arrayCount = Platform::readBigEndian<UInt32>(bytes + ARRAY_COUNT);
    UInt64 const sampleCount = Platform::readBigEndian<UInt16>(bytes + SAMPLE_COUNT);
    UInt64 const elementSize = Platform::readBigEndian<UInt32>(bytes + ELEMENT_SIZE);
    return (arrayCount % 4 == 0 ? arrayCount : sampleCount) * elementSize;
}

// From the start on, so that the metadata don't grow when it becomes known.
Types::Length const UNKNOWN_DURATION(-1);

MultipleDescriptor * multipleDescriptorOf(SourcePackage * package)
{
    return package != nullptr ? dynamic_cast<MultipleDescriptor *>(package->descriptor()) : nullptr;
}

}

// The track and the descriptor, with the count of edit units.
class S436MBaseAnalyzer::Description : public MetadataBuilder
{
public:
    Description(Metadata::PartitionMetadata & metadata, SourcePackage * package, unsigned int trackNumber,
                unsigned int trackId, S436MBaseAnalyzer & analyzer) :
        MetadataBuilder(metadata, package, multipleDescriptorOf(package), trackNumber, trackId, analyzer.editRate(), 0),
        descriptor_(nullptr)
    {
        createEssenceTrack(Metadata::Structural::DataDefinitionULs::data(), trackNumber);

        Types::Rational const sampleRate(analyzer.editRate().numerator(), analyzer.editRate().denominator());
        Types::UniversalLabel const container = analyzer.universalLabel();
        Types::UInt32 const linkedTrack(trackId);
        descriptor_ = analyzer.createMetadataSet(metadata);
        descriptor_->sampleRate(&sampleRate);
        descriptor_->essenceContainer(&container);
        descriptor_->linkedTrack(&linkedTrack);
        descriptor_->containerDuration(&UNKNOWN_DURATION);
        setDescriptorToPackage(descriptor_);
    }

    void count() { position(position() + 1); }

    void finish() override
    {
        if (isFinished_)
            return;
        isFinished_ = true;
        MetadataBuilder::finish();
        Types::Length const duration(position() + 1);
        descriptor_->containerDuration(&duration);
    }

private:
    GenericDataEssenceDescriptor * descriptor_;
    bool isFinished_ = false;
};

class S436MBaseAnalyzer::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Impl(Templates::SharedPtr<DataIO::SliceSource> source) : reader(std::move(source)) {}

    DataIO::SliceReader reader;
    std::unique_ptr<Description> description;
    Rate editRate;
    Rate duration = -1;
    Rate preCharge;
};

S436MBaseAnalyzer::S436MBaseAnalyzer(Templates::SharedPtr<DataIO::SliceSource> source) :
    impl_(new Impl(std::move(source)))
{
}

S436MBaseAnalyzer::~S436MBaseAnalyzer()
{
    delete impl_;
}

Rate S436MBaseAnalyzer::editRate()
{
    return impl_->editRate;
}

void S436MBaseAnalyzer::editRate(Rate const & containerRate)
{
    impl_->editRate = containerRate;
}

UInt64 S436MBaseAnalyzer::maximumToSkip() const
{
    return 0;
}

void S436MBaseAnalyzer::maximumToSkip(UInt64) {}

bool S436MBaseAnalyzer::preload()
{
    return true;
}

bool S436MBaseAnalyzer::setMetadata(Metadata::PartitionMetadata & metadata, SourcePackage * package,
                                    unsigned int trackNumber, unsigned int trackID)
{
    if (impl_->description)
        return false;
    impl_->description = std::make_unique<Description>(metadata, package, trackNumber, trackID, *this);
    return true;
}

bool S436MBaseAnalyzer::nextEditUnit(EditUnit & unit)
{
    unit.valid = false;
    DataIO::SliceReader & reader = impl_->reader;
    if (reader.endOfStream())
        return false;

    // A single byte at the end is none of an element, and taken, so that the
    // stream has ended.
    Templates::auto_ptr<Slice> first = reader.read(COUNT_SIZE);
    if (first->size() < COUNT_SIZE)
        return false;

    unit.valid = true;
    unit.count = 0;
    unit.duration = Rate(1) / impl_->editRate;
    unsigned int const lines = Platform::readBigEndian<UInt16>(first->begin());
    unit.data.push_back(first);
    try
    {
        for (unsigned int line = 0; line < lines; ++line)
        {
            Templates::auto_ptr<Slice> header = reader.readAligned(HEADER_SIZE);
            Templates::auto_ptr<Slice> payload = reader.readAligned(payloadSize(*header));
            processPayload(*payload);
            unit.data.push_back(header);
            unit.data.push_back(payload);
        }
    }
    catch (Exceptions::NotEnoughData const &)
    {
        VANTRY_FAIL(InvalidFormat, Platform::wide(u"Input stream is not according to format.").text);
    }
    if (impl_->description)
        impl_->description->count();
    return true;
}

bool S436MBaseAnalyzer::finalize()
{
    if (!impl_->description)
        return false;
    impl_->description->finish();
    return true;
}

bool S436MBaseAnalyzer::isCBE() const
{
    return false;
}

void S436MBaseAnalyzer::boundedEditUnitSize(int) {}

unsigned int S436MBaseAnalyzer::boundedEditUnitSize() const
{
    return 0;
}

bool S436MBaseAnalyzer::containsTemporalDependencies() const
{
    return false;
}

Utils::TimeCode S436MBaseAnalyzer::currentTimeCode()
{
    return Utils::TimeCode();
}

unsigned char S436MBaseAnalyzer::itemTypeIdentifier() const
{
    return DATA_ITEM;
}

unsigned int S436MBaseAnalyzer::requiredKAGSize() const
{
    return 1;
}

bool S436MBaseAnalyzer::done()
{
    return impl_->reader.endOfStream();
}

void S436MBaseAnalyzer::setDuration(Rate const & seconds)
{
    impl_->duration = seconds;
}

Rate S436MBaseAnalyzer::getDuration()
{
    return impl_->duration;
}

void S436MBaseAnalyzer::setPreChargeDuration(Rate const & seconds)
{
    impl_->preCharge = seconds;
}

Rate S436MBaseAnalyzer::getPreChargeDuration()
{
    return impl_->preCharge;
}

void S436MBaseAnalyzer::processPayload(Slice const &) {}

}}}
