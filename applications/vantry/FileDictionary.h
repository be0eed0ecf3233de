#pragma once

#include "MetaMetadata/Dictionary.h"
#include "Platform/Integers.h"
#include "Schema/Tables.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace DataIO {
class RandomAccessDataSource;
}

namespace Application {

/// Makes a dictionary of what some header metadata have of a schema. One of the
/// whole schema takes longer to make than all else that a look at a file takes.
///
/// \param file  stands behind a partition pack, and does so afterwards
/// \param size  bytes that the pack claims for the metadata
/// \throws Exceptions::IOError when the medium fails.
Templates::SharedPtr<MetaMetadata::Dictionary> dictionaryFor(DataIO::RandomAccessDataSource & file, UInt64 size,
                                                             Schema::Tables const & tables);

}
}
