#pragma once

#include "ValueReport.h"

#include <string>
#include <vector>

namespace Vantry {
namespace Metadata {
class Element;
class MetadataSet;
class PartitionDictionary;
}

namespace Application {

/// What is told of an element that has a value. What isn't known is empty.
struct ElementReport // NOLINT(bugprone-exception-escape): values of JSON are said to throw when moved
{
    std::string symbol; // the name in machine-readable output
    std::string name;   // the name for people
    std::string label;
    std::string tag;
    std::string type;
    std::string itemType; // of a collection

    /// "unknown", "misplaced" or "invalid", and why; else empty.
    std::string fault;
    std::string reason;

    ValueReport::Json value;
};

/// Tells of the elements of sets.
class SetReport
{
public:
    /// \param dictionary  of the partition; lent
    SetReport(Metadata::PartitionDictionary const & dictionary, ValueReport const & values) :
        dictionary_(dictionary), values_(values)
    {
    }

    /// The elements with a value by label, then those that have no place in
    /// the set in the order of the file.
    std::vector<ElementReport> operator()(Metadata::MetadataSet const & set) const;

private:
    void append(Metadata::Element const & element, std::vector<ElementReport> & elements) const;

    Metadata::PartitionDictionary const & dictionary_;
    ValueReport values_;
};

}
}
