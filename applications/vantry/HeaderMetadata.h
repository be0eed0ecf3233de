#pragma once

#include "Metadata/PartitionMetadata.h"
#include "Platform/Integers.h"
#include "Templates/SharedPtr.h"

#include <memory>
#include <string>
#include <vector>

namespace Vantry {
namespace DataIO {
class RandomAccessDataSource;
}
namespace MetaMetadata {
class Dictionary;
}

namespace Application {

/// The header metadata of a partition as far as they can be read.
///
/// Sets without a primer pack are read by static tags. A set that is damaged
/// is kept as a dark one.
struct HeaderMetadata
{
    std::unique_ptr<Metadata::PartitionMetadata> metadata;

    /// What is wrong, in the order of the file.
    std::vector<std::string> warnings;
};

/// Reads header metadata; a fill item ahead of them is passed over.
///
/// \param file  stands behind a partition pack
/// \param size  bytes that the pack claims for them
/// \throws Exceptions::IOError when the medium fails.
HeaderMetadata readHeaderMetadata(DataIO::RandomAccessDataSource & file, UInt64 size,
                                  Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary);

}
}
