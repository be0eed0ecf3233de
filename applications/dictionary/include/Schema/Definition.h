#pragma once

#include "Schema/Tables.h"

#include <memory>
#include <string>

namespace Vantry { namespace Schema {

/// A schema that is put together at run time from schema files. A file adds
/// elements, sets and names of labels, or replaces those of the same symbol,
/// key or label.
class Definition
{
public:
    /// An empty schema.
    Definition();

    /// A copy of a schema, to be added to.
    explicit Definition(Tables const & tables);

    Definition(Definition const &) = delete;
    Definition & operator=(Definition const &) = delete;
    ~Definition();

    /// Adds what a file holds. UTF-8 name.
    ///
    /// \throws SchemaError; the definition is of no more use then.
    void addFile(std::string const & path);

    /// Adds what a text in the form of a schema file holds; `source` is how
    /// messages name it.
    ///
    /// \throws SchemaError; the definition is of no more use then.
    void addText(std::string const & text, std::string const & source);

    /// The schema as it stands, valid until the next change.
    ///
    /// \throws SchemaError for a reference to a set that there is not.
    Tables tables();

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}}
