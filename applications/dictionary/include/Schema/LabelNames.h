#pragma once

#include "Schema/Tables.h"

namespace Vantry { namespace Schema {

/// The name of a label that is no attribute, such as an operational pattern or
/// an essence container; null when the tables have none. A label that differs
/// in the version byte alone has the same name.
///
/// \param label  16 bytes
char const * findLabelName(Tables const & tables, unsigned char const * label);

}}
