#pragma once

#include "Types/LocalTag.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata {

class PartitionDictionary;

/// What PartitionDictionary::find answers, without the cost of a throw: files
/// with thousands of unknown tags are read as fast as others.
struct TagResolution
{
    enum Outcome
    {
        FOUND,
        INVALID_TAG,
        NOT_IN_PRIMER,
        NOT_IN_PRIMER_NOR_DICTIONARY,
        STATIC_TAG_UNKNOWN,
        COLLISION
    };

    Outcome outcome;

    /// The label; null unless it was found.
    Types::UniversalLabel const * label;
};

TagResolution resolveTag(PartitionDictionary const & dictionary, Types::LocalTag const & tag, bool strict);

}}
