#include "Metadata/MetadataSetOwner.h"

namespace Vantry { namespace Metadata {

MetadataSetOwner::~MetadataSetOwner() = default;

}}
