#include "Metadata/Listeners/NullCommitableListener.h"

namespace Vantry { namespace Metadata { namespace Listeners {

NullCommitableListener::~NullCommitableListener() = default;

}}}
