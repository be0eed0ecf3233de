#pragma once

#include "Schema/Tables.h"

#include <cstddef>
#include <limits>
#include <nlohmann/json.hpp>

namespace Vantry {
namespace Types {
class BaseType;
}

namespace Application {

class MetadataTree;

/// Values of metadata as the program shows them: numbers, truth values and
/// text as such; labels with their names, references with the place of the
/// set they mean, collections as lists, all else as text.
class ValueReport
{
public:
    using Json = nlohmann::ordered_json;

    static constexpr std::size_t ALL_BYTES = std::numeric_limits<std::size_t>::max();

    /// \param tables        names of labels
    /// \param tree          where references lead; lent
    /// \param longestBytes  how many bytes are shown of a value that is none
    ///                      but bytes
    ValueReport(Schema::Tables const & tables, MetadataTree const & tree, std::size_t longestBytes);

    Json operator()(Types::BaseType const & value) const;

private:
    class Visitor;

    Schema::Tables tables_;
    MetadataTree const & tree_;
    std::size_t longestBytes_;
};

}
}
