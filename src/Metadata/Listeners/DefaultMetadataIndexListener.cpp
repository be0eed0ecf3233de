#include "Metadata/Listeners/DefaultMetadataIndexListener.h"

#include "Metadata/MetadataULs.h"

namespace Vantry { namespace Metadata { namespace Listeners {

bool DefaultMetadataIndexListener::isIndexed(Types::UniversalLabel const & label) const
{
    using namespace MetadataULs;
    return label == instanceUID() || label == thisGenerationUID() || label == linkedPackageUID() ||
           label == trackID() || label == packageUID();
}

}}}
