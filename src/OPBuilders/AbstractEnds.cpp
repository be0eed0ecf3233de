// Ends of abstract classes, which have a place of their own so that there is
// one table of operations for each.

#include "OPBuilders/MaterialPackageProxy.h"
#include "OPBuilders/TrackProxy.h"

namespace Vantry { namespace OPBuilders {

MaterialPackageProxy::~MaterialPackageProxy() = default;

TrackProxy::~TrackProxy() = default;

}}
