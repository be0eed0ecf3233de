#pragma once

#include <string>
#include <string_view>

namespace Vantry { namespace Application {

/// Whether a stream begins with packets of elementary streams (PES), or with a
/// program stream (ISO/IEC 13818-1).
bool isPacketStream(std::string_view head);

/// The identifiers of the elementary streams in it, such as "E0h, C0h", padding
/// aside; as far as packets follow each other.
///
/// \param head  the first bytes of a stream of packets
std::string elementaryStreamsIn(std::string_view head);

/// Whether a stream begins with packets of sound (SMPTE 302M).
bool isS302M(std::string_view head);

}}
