#pragma once

#include "GenericContainer/CompoundAnalyzer.h"
#include "GenericContainer/DataAnalyzer.h"
#include "GenericContainer/PictureAnalyzer.h"
#include "GenericContainer/SoundAnalyzer.h"
#include "GenericContainer/SystemAnalyzer.h"

namespace Vantry { namespace GenericContainer {

/// Whether an analyzer's class says of what kind it is, and of which.
inline bool kindByClass(EssenceAnalyzer const & analyzer, EssenceAnalyzerType & kind)
{
    if (dynamic_cast<SystemAnalyzer const *>(&analyzer) != nullptr)
        kind = ANALYZER_SYSTEM;
    else if (dynamic_cast<CompoundAnalyzer const *>(&analyzer) != nullptr)
        kind = ANALYZER_COMPOUND;
    else if (dynamic_cast<PictureAnalyzer const *>(&analyzer) != nullptr)
        kind = ANALYZER_PICTURE;
    else if (dynamic_cast<SoundAnalyzer const *>(&analyzer) != nullptr)
        kind = ANALYZER_SOUND;
    else if (dynamic_cast<DataAnalyzer const *>(&analyzer) != nullptr)
        kind = ANALYZER_DATA;
    else
        return false;
    return true;
}

}}
