#pragma once

#include "MXFIO/KLVSource.h"

/// Data that aren't essence, in partitions of their own (SMPTE 410).
namespace Vantry { namespace GenericStream {

/// Gives the packets of a generic stream partition.
class VANTRY_EXPORT Source : public MXFIO::KLVSource
{
};

}}
