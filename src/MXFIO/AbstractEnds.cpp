// Classes for others to derive from; their tables of functions are here.

#include "MXFIO/AbstractPartition.h"
#include "MXFIO/ContentStorageProfile.h"
#include "MXFIO/IndexTableProvider.h"
#include "MXFIO/PartitionListener.h"
#include "MXFIO/PartitionProvider.h"

namespace Vantry { namespace MXFIO {

AbstractPartition::~AbstractPartition() = default;
PartitionListener::~PartitionListener() = default;
IndexTableProvider::~IndexTableProvider() = default;
PartitionProvider::~PartitionProvider() = default;
ContentStorageProfile::~ContentStorageProfile() = default;

CustomElementReaderFactory * ContentStorageProfile::customElementReaderFactory()
{
    return nullptr;
}

KnowledgeStatus ContentStorageProfile::isEssenceDataDefinition(Types::UniversalLabel const &, bool *)
{
    return KNOWLEDGE_UNKNOWN;
}

}}
