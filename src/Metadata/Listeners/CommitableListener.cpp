#include "Metadata/Listeners/CommitableListener.h"

namespace Vantry { namespace Metadata { namespace Listeners {

CommitableListener::~CommitableListener() = default;

}}}
