#pragma once

#include <stdexcept>

namespace Vantry { namespace Schema {

/// A schema file can't be used. The text names the file, the set or element
/// and the field.
class SchemaError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

}}
