#pragma once

#include "Metadata/Listeners/BaseMetadataIndexListener.h"

namespace Vantry { namespace Metadata { namespace Listeners {

/// The index of what sets refer to each other by: MetadataULs::instanceUID(),
/// thisGenerationUID(), linkedPackageUID(), trackID() and packageUID().
class VANTRY_EXPORT DefaultMetadataIndexListener : public BaseMetadataIndexListener
{
public:
    bool isIndexed(Types::UniversalLabel const & label) const override;
};

}}}
