// Classes for others to derive from; their tables of functions are here.

#include "MXFIO/AbstractPartition.h"
#include "MXFIO/AbstractPartitionWriter.h"
#include "MXFIO/AbstractSIDGenerator.h"
#include "MXFIO/ContentStorageProfile.h"
#include "MXFIO/CreatorListener.h"
#include "MXFIO/CustomElementReaderFactory.h"
#include "MXFIO/ElementReader.h"
#include "MXFIO/FutureUpdater.h"
#include "MXFIO/IndexTableGenerator.h"
#include "MXFIO/IndexTableProvider.h"
#include "MXFIO/KLVSource.h"
#include "MXFIO/PartitionListener.h"
#include "MXFIO/PartitionProvider.h"
#include "MXFIO/SystemItemKLVPacketListener.h"

namespace Vantry { namespace MXFIO {

AbstractPartition::~AbstractPartition() = default;
AbstractPartitionWriter::~AbstractPartitionWriter() = default;
AbstractSIDGenerator::~AbstractSIDGenerator() = default;
CreatorListener::~CreatorListener() = default;
FutureUpdater::~FutureUpdater() = default;
PartitionListener::~PartitionListener() = default;
ElementReader::~ElementReader() = default;
CustomElementReaderFactory::~CustomElementReaderFactory() = default;
SystemItemKLVPacketListener::~SystemItemKLVPacketListener() = default;
IndexTableGenerator::~IndexTableGenerator() = default;
IndexTableProvider::~IndexTableProvider() = default;
KLVSource::~KLVSource() = default;
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
