#pragma once

#include <string_view>

namespace Vantry {
namespace Packs {
class PartitionPack;
}

namespace Application {

/// "header", "body" or "footer".
std::string_view kindOf(Packs::PartitionPack const & pack);

/// "open_incomplete", "closed_complete" and so on, or "generic_stream".
std::string_view statusOf(Packs::PartitionPack const & pack);

}
}
