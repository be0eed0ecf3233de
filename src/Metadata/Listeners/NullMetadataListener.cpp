#include "Metadata/Listeners/NullMetadataListener.h"

namespace Vantry { namespace Metadata { namespace Listeners {

NullMetadataListener::~NullMetadataListener() = default;

}}}
