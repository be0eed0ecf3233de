#include "Metadata/PartitionMetadataListener.h"

namespace Vantry { namespace Metadata {

PartitionMetadataListener::~PartitionMetadataListener() = default;

}}
