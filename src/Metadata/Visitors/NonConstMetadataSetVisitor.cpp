#include "Metadata/Visitors/NonConstMetadataSetVisitor.h"

namespace Vantry { namespace Metadata { namespace Visitors {

NonConstMetadataSetVisitor::~NonConstMetadataSetVisitor() = default;

}}}
