#pragma once

#include "Packs/PartitionPack.h"

#include <memory>

namespace Vantry {
namespace DataIO {
class RandomAccessDataSource;
}

namespace Application {

/// Finds the pack that opens a file, behind a run-in if there is one, and
/// leaves the file behind it.
///
/// \return null when there is none, or it can't be read
/// \throws Exceptions::IOError when the medium fails.
std::unique_ptr<Packs::PartitionPack> findFirstPartition(DataIO::RandomAccessDataSource & file);

}
}
