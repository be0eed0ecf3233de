#include "ToneAnalyzer.h"

#include <Vantry/DataIO/BlockHolder.h>
#include <Vantry/DataIO/Memory/MemoryBlockFactory.h>
#include <Vantry/GenericContainer/EditUnit.h>
#include <Vantry/Metadata/Structural/DataDefinitionULs.h>
#include <Vantry/Metadata/Structural/StructuralMetadataKeys.h>
#include <Vantry/Metadata/Structural/WAVEAudioEssenceDescriptor.h>
#include <Vantry/Types/Boolean.h>
#include <Vantry/Types/Rational.h>
#include <Vantry/Types/UInt16.h>
#include <Vantry/Types/UInt32.h>
#include <Vantry/Types/UniversalLabel.h>

#include <cmath>

using namespace Vantry;
using Analyzers::put;

namespace {

int const SAMPLES_PER_SECOND = 48000;
unsigned short const BYTES_PER_SAMPLE = 2;
double const AMPLITUDE = 0.1 * 32767; // -20 dBFS
double const TWO_PI = 6.283185307179586;

}

ToneAnalyzer::ToneAnalyzer(double hertz, UInt64 editUnits) :
    radiansPerSample_(TWO_PI * hertz / SAMPLES_PER_SECOND), editUnits_(editUnits), editUnitsMade_(0), samplesMade_(0)
{
}

ToneAnalyzer::Rate ToneAnalyzer::editRate()
{
    return rate_;
}

void ToneAnalyzer::editRate(Rate const & containerRate)
{
    rate_ = containerRate;
    cadence_.emplace(SAMPLES_PER_SECOND, rate_);
}

// An analyzer of a stream would look here whether it knows the format.
bool ToneAnalyzer::preload()
{
    return true;
}

bool ToneAnalyzer::setMetadata(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                               unsigned int trackNumber, unsigned int trackID)
{
    using Sound = Metadata::Structural::WAVEAudioEssenceDescriptor;
    metadata_ = std::make_unique<Analyzers::EssenceMetadata>(metadata, package, trackNumber, trackID, rate_);
    Sound & sound =
        metadata_->describe<Sound>(Metadata::Structural::StructuralMetadataKeys::waveAudioEssenceDescriptor(),
                                   Metadata::Structural::DataDefinitionULs::audio(), universalLabel(), rate_);

    unsigned int const channels = 1;
    unsigned int const bits = 8 * BYTES_PER_SAMPLE;
    unsigned int const bytesPerSecond = BYTES_PER_SAMPLE * SAMPLES_PER_SECOND;
    put(sound, &Sound::audioSamplingRate, SAMPLES_PER_SECOND, 1);
    put(sound, &Sound::lockedUnlocked, true);
    put(sound, &Sound::channelCount, channels);
    put(sound, &Sound::quantizationBits, bits);
    put(sound, &Sound::blockAlign, BYTES_PER_SAMPLE);
    put(sound, &Sound::avgBps, bytesPerSecond);
    return true;
}

bool ToneAnalyzer::nextEditUnit(GenericContainer::EditUnit & unit)
{
    if (done())
        return false;

    UInt64 const samples = cadence_->samples(editUnitsMade_);
    UInt64 const size = samples * BYTES_PER_SAMPLE;
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(size);
    fill(block.block()->data(), samples);

    unit.data.push_back(Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, size)));
    unit.duration = Rate(static_cast<int>(samples), SAMPLES_PER_SECOND);
    unit.valid = true;
    ++editUnitsMade_;
    return true;
}

// The low byte of a sample comes first.
void ToneAnalyzer::fill(unsigned char * samples, UInt64 count)
{
    for (UInt64 i = 0; i < count; ++i, ++samplesMade_)
    {
        double const value = AMPLITUDE * std::sin(radiansPerSample_ * static_cast<double>(samplesMade_));
        auto const sample = static_cast<unsigned int>(std::lround(value));
        *samples++ = static_cast<unsigned char>(sample & 0xFF);
        *samples++ = static_cast<unsigned char>(sample >> 8 & 0xFF);
    }
}

bool ToneAnalyzer::done()
{
    return editUnitsMade_ == editUnits_;
}

// The durations, which stood open until now.
bool ToneAnalyzer::finalize()
{
    metadata_->finish(editUnitsMade_, editUnitsMade_);
    return true;
}

// Sound of a wave file, wrapped by the frame.
Types::UniversalLabel ToneAnalyzer::universalLabel()
{
    static unsigned char const LABEL[16] = {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x01,
                                            0x0D, 0x01, 0x03, 0x01, 0x02, 0x06, 0x01, 0x00};
    return Types::UniversalLabel(LABEL);
}

unsigned char ToneAnalyzer::itemTypeIdentifier() const
{
    return 0x16;
}

unsigned char ToneAnalyzer::essenceElementType() const
{
    return 0x01;
}

// At 30000/1001 edit units per second they have 1601 or 1602 samples.
bool ToneAnalyzer::isCBE() const
{
    return cadence_->isConstant();
}

unsigned int ToneAnalyzer::boundedEditUnitSize() const
{
    return cadence_->maximum() * BYTES_PER_SAMPLE;
}
