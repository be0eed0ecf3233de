// Classes for others to derive from; their tables of functions are here.

#include "MXFIO/AbstractPartition.h"
#include "MXFIO/PartitionListener.h"

namespace Vantry { namespace MXFIO {

AbstractPartition::~AbstractPartition() = default;
PartitionListener::~PartitionListener() = default;

}}
