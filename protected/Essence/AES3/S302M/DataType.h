#pragma once

#include "DataIO/Slice.h"

namespace Vantry { namespace Essence { namespace AES3 { namespace S302M {

/// The data type of what SMPTE ST 337 puts into PCM of a number of bits, by
/// the first preamble behind silence. AES3Info::PCM where there is none, and
/// for types that aren't known.
Int32 dataTypeIn(DataIO::Slice const & pcm, unsigned int bits);

}}}}
