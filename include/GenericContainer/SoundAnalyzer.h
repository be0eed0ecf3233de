#pragma once

#include "GenericContainer/EssenceAnalyzer.h"

namespace Vantry { namespace GenericContainer {

/// Brings sound.
class VANTRY_EXPORT SoundAnalyzer : public EssenceAnalyzer
{
public:
    /// ANALYZER_SOUND.
    EssenceAnalyzerType essenceAnalyzerType() override;
};

}}
