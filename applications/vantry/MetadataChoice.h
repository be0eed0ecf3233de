#pragma once

#include "HeaderMetadata.h"
#include "Schema/Tables.h"

namespace Vantry {
namespace MXFIO {
class Partition;
}

namespace Application {

class FileLayout;
class Warnings;

/// The header metadata that tell most of a file.
struct MetadataChoice
{
    /// Where they are; the header partition when none has any.
    MXFIO::Partition const * partition;
    HeaderMetadata header;
};

/// Reads the metadata of a partition: closed ones rather than open ones, of
/// these complete ones, and of these the header partition's or else the last.
/// Metadata without a Preface don't count where there are others.
///
/// \throws Exceptions::IOError when the medium fails.
MetadataChoice chooseMetadata(FileLayout const & layout, Schema::Tables const & tables, Warnings & warnings);

}
}
