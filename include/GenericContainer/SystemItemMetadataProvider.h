#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace GenericContainer {

class SystemMetadataPack;

/// For applications that make system items of their own: completes the pack
/// of the next content package.
class VANTRY_EXPORT SystemItemMetadataProvider
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~SystemItemMetadataProvider();

    virtual void nextSystemMetadata(SystemMetadataPack & pack) = 0;
};

}}
