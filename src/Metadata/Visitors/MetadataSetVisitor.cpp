#include "Metadata/Visitors/MetadataSetVisitor.h"

namespace Vantry { namespace Metadata { namespace Visitors {

MetadataSetVisitor::~MetadataSetVisitor() = default;

}}}
