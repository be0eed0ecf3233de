#include "MetaMetadata/Visitors/NonConstMetaElementVisitor.h"

namespace Vantry { namespace MetaMetadata { namespace Visitors {

NonConstMetaElementVisitor::~NonConstMetaElementVisitor() = default;

}}}
