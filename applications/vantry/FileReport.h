#pragma once

#include "Schema/Tables.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace Vantry {
namespace DataIO {
class RandomAccessDataSource;
}

namespace Application {

/// Tells what a file is: its partitions, metadata, essence and faults, in the
/// form that machines get.
///
/// \param name        of the file, for the result
/// \param file        lent
/// \param tables      the schema of the metadata
/// \return none when the file has no header partition
/// \throws Exceptions::IOError when the medium fails.
std::optional<nlohmann::ordered_json> reportOf(std::string const & name, DataIO::RandomAccessDataSource & file,
                                               Schema::Tables const & tables);

}
}
