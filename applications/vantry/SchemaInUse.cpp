#include "SchemaInUse.h"

#include "Failure.h"
#include "Input.h"
#include "Schema/SchemaError.h"

namespace Vantry { namespace Application {

SchemaInUse::SchemaInUse(std::string const & file) : tables_(Schema::builtInTables())
{
    if (file.empty())
        return;

    requireReadable(file);
    try
    {
        definition_ = std::make_unique<Schema::Definition>(tables_);
        definition_->addFile(file);
        tables_ = definition_->tables();
    }
    catch (Schema::SchemaError const & error)
    {
        // The text begins with the file's name and a mark.
        throw Failure(ExitStatus::FAILED, file, std::string(error.what()).substr(file.size() + 2));
    }
}

}}
