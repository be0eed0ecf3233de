#include "Metadata/Structural/Visitors/NonConstMetadataSetVisitor.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace Visitors {

NonConstMetadataSetVisitor::~NonConstMetadataSetVisitor() = default;

}}}}
