// Classes for others to derive from; their tables of functions are here.

#include "GenericContainer/CompoundAnalyzer.h"
#include "GenericContainer/DataAnalyzer.h"
#include "GenericContainer/GenericContainerIndexTableGenerator.h"
#include "GenericContainer/NullEssenceProvider.h"
#include "GenericContainer/PictureAnalyzer.h"
#include "GenericContainer/SoundAnalyzer.h"
#include "GenericContainer/SystemAnalyzer.h"
#include "GenericContainer/SystemItemMetadataProvider.h"
#include "GenericContainer/TimeCodeExtendedProvider.h"

namespace Vantry { namespace GenericContainer {

EssenceAnalyzer::~EssenceAnalyzer() = default;
NullEssenceProvider::~NullEssenceProvider() = default;
GenericContainerIndexTableGenerator::~GenericContainerIndexTableGenerator() = default;
SystemItemMetadataProvider::~SystemItemMetadataProvider() = default;
TimeCodeProvider::~TimeCodeProvider() = default;
TimeCodeExtendedProvider::~TimeCodeExtendedProvider() = default;

KLV::Key EssenceAnalyzer::proposeKey(KLV::Key const & key)
{
    return key;
}

void EssenceAnalyzer::customizeDescriptor(Metadata::Structural::FileDescriptor &) {}

void EssenceAnalyzer::setDuration(Templates::Rational<int> const &) {}

Templates::Rational<int> EssenceAnalyzer::getDuration()
{
    return -1;
}

void EssenceAnalyzer::setPreChargeDuration(Templates::Rational<int> const &) {}

Templates::Rational<int> EssenceAnalyzer::getPreChargeDuration()
{
    return 0;
}

EssenceAnalyzerType SystemAnalyzer::essenceAnalyzerType()
{
    return ANALYZER_SYSTEM;
}

EssenceAnalyzerType CompoundAnalyzer::essenceAnalyzerType()
{
    return ANALYZER_COMPOUND;
}

EssenceAnalyzerType PictureAnalyzer::essenceAnalyzerType()
{
    return ANALYZER_PICTURE;
}

EssenceAnalyzerType SoundAnalyzer::essenceAnalyzerType()
{
    return ANALYZER_SOUND;
}

EssenceAnalyzerType DataAnalyzer::essenceAnalyzerType()
{
    return ANALYZER_DATA;
}

}}
