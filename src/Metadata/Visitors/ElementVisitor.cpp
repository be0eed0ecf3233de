#include "Metadata/Visitors/ElementVisitor.h"

namespace Vantry { namespace Metadata { namespace Visitors {

ElementVisitor::~ElementVisitor() = default;

}}}
