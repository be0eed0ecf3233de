#include "Metadata/Structural/Visitors/MetadataSetVisitor.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace Visitors {

MetadataSetVisitor::~MetadataSetVisitor() = default;

}}}}
