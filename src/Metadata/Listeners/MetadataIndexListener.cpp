#include "Metadata/Listeners/MetadataIndexListener.h"

namespace Vantry { namespace Metadata { namespace Listeners {

MetadataIndexListener::~MetadataIndexListener() = default;

}}}
