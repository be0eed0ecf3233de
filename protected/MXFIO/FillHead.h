#pragma once

namespace Vantry { namespace MXFIO {

/// Bytes of the length field of fill items between the parts of a file.
unsigned char const FILL_BER_LENGTH = 4;

/// Bytes of the smallest such fill item, key and length field.
unsigned int const SMALLEST_FILL = 20;

}}
