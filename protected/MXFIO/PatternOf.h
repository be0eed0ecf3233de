#pragma once

#include "Metadata/MetadataULs.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace MXFIO {

/// The operational pattern that the Preface names, or zeros.
///
/// \throws Exceptions::NotFound when there is no Preface.
inline Types::UniversalLabel const & patternOf(Metadata::PartitionMetadata const & metadata)
{
    Types::UniversalLabel const * const pattern = Metadata::Structural::operationalPattern(metadata);
    return pattern != nullptr ? *pattern : Metadata::MetadataULs::null();
}

}}
