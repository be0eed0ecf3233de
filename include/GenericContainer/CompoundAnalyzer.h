#pragma once

#include "GenericContainer/EssenceAnalyzer.h"

namespace Vantry { namespace GenericContainer {

/// Brings essence in which picture, sound and data are interwoven, such as DV.
class VANTRY_EXPORT CompoundAnalyzer : public EssenceAnalyzer
{
public:
    /// ANALYZER_COMPOUND.
    EssenceAnalyzerType essenceAnalyzerType() override;
};

}}
