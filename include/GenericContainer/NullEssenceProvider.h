#pragma once

#include "Platform/Export.h"

namespace Vantry { namespace GenericContainer {

struct EditUnit;

/// A second base of an analyzer that can give essence where there is none:
/// silence, black.
///
/// It declares no allocation functions, which are those of the analyzer.
class VANTRY_EXPORT NullEssenceProvider
{
public:
    virtual ~NullEssenceProvider();

    /// Fills an edit unit whose duration is set.
    virtual void fillNullEssence(EditUnit & unit) = 0;
};

}}
