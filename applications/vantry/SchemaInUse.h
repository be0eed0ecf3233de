#pragma once

#include "Schema/Definition.h"
#include "Schema/Tables.h"

#include <memory>
#include <string>

namespace Vantry { namespace Application {

/// The built-in schema, with what a schema file of the user's adds or replaces.
class SchemaInUse
{
public:
    /// \param file  a schema file, or empty for none
    /// \throws Failure when the file can't be used.
    explicit SchemaInUse(std::string const & file);

    Schema::Tables const & tables() const { return tables_; }

private:
    std::unique_ptr<Schema::Definition> definition_; // of which the tables are
    Schema::Tables tables_;
};

}}
