#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry {
namespace Types {
class UniversalLabel;
}

namespace MXFIO {

class CustomElementReaderFactory;

/// How sure an answer is.
enum KnowledgeStatus : int
{
    KNOWLEDGE_UNKNOWN = 0,
    KNOWLEDGE_ASSUMED = 1,
    KNOWLEDGE_KNOWN = 2
};

/// What an application knows of an essence container, beside what the file
/// says. Only answers of KNOWLEDGE_KNOWN count.
class VANTRY_EXPORT ContentStorageProfile
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~ContentStorageProfile();

    /// How many edit units each partition of the container has, all but the
    /// last; 0 when they differ. Partitions are then found without a search.
    virtual KnowledgeStatus editUnitsPerPartition(unsigned int * editUnits) = 0;

    /// Bytes of each edit unit, where they are all of one size.
    virtual KnowledgeStatus editUnitByteCount(unsigned int * bytes) = 0;

    /// Number of edit units in the container.
    virtual KnowledgeStatus duration(Int64 * editUnits) = 0;

    /// Whether the container is one clip in one packet.
    virtual KnowledgeStatus isClipWrapped(bool * isClip) = 0;

    /// Makes element readers of the application's own; lent, null for none.
    virtual CustomElementReaderFactory * customElementReaderFactory();

    /// Whether tracks with this data definition are tracks of essence.
    virtual KnowledgeStatus isEssenceDataDefinition(Types::UniversalLabel const & dataDefinition, bool * isEssence);
};

}
}
