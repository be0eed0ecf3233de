#include "MetaMetadata/Visitors/MetaElementVisitor.h"

namespace Vantry { namespace MetaMetadata { namespace Visitors {

MetaElementVisitor::~MetaElementVisitor() = default;

}}}
