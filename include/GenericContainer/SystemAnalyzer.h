#pragma once

#include "GenericContainer/EssenceAnalyzer.h"

namespace Vantry { namespace GenericContainer {

/// Brings the system item, which opens each content package. A container has at
/// most one.
class VANTRY_EXPORT SystemAnalyzer : public EssenceAnalyzer
{
public:
    /// ANALYZER_SYSTEM.
    EssenceAnalyzerType essenceAnalyzerType() override;
};

}}
