#pragma once

#include "MetaMetadata/Dictionary.h"
#include "Schema/Tables.h"
#include "Templates/SharedPtr.h"

#include <string>

namespace Vantry { namespace Schema {

/// A dictionary with everything that the tables hold; the tables may go.
///
/// Elements bear the properties `name` and `symbol`, sets too, attributes
/// `name` and `RequiresSemanticsValidation`.
///
/// \throws Exceptions::BaseException for types that don't fit together.
Templates::SharedPtr<MetaMetadata::Dictionary> makeDictionary(Tables const & tables);

/// A dictionary of the built-in schema.
Templates::SharedPtr<MetaMetadata::Dictionary> builtInDictionary();

/// A dictionary of the built-in schema with what a schema file adds or
/// replaces.
///
/// \throws SchemaError when the file can't be used.
Templates::SharedPtr<MetaMetadata::Dictionary> dictionaryWith(std::string const & path);

}}
