#include "Metadata/Visitors/NullElementVisitor.h"

namespace Vantry { namespace Metadata { namespace Visitors {

NullElementVisitor::~NullElementVisitor() = default;

}}}
