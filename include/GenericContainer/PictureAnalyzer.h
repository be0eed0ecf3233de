#pragma once

#include "GenericContainer/EssenceAnalyzer.h"

namespace Vantry { namespace GenericContainer {

/// Brings pictures.
class VANTRY_EXPORT PictureAnalyzer : public EssenceAnalyzer
{
public:
    /// ANALYZER_PICTURE.
    EssenceAnalyzerType essenceAnalyzerType() override;
};

}}
