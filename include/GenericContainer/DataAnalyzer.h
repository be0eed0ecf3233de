#pragma once

#include "GenericContainer/EssenceAnalyzer.h"

namespace Vantry { namespace GenericContainer {

/// Brings data essence, such as subtitles and ancillary data.
class VANTRY_EXPORT DataAnalyzer : public EssenceAnalyzer
{
public:
    /// ANALYZER_DATA.
    EssenceAnalyzerType essenceAnalyzerType() override;
};

}}
