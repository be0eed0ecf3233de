#pragma once

#include "DataIO/Slice.h"
#include "Templates/auto_ptr.h"
#include "VideoHeaders.h"

namespace Vantry { namespace Analyzers {

/// A black frame, as a closed group of its own, without the sequence header
/// that is to stand ahead of it.
Templates::auto_ptr<DataIO::Slice> blackPicture(SequenceHeader const & sequence);

}}
