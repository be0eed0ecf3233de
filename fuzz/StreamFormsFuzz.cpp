// Recognises any bytes as the start of a stream. What was recognised by the
// packets or elements in it needs as many bytes as their headers take.
//
// Input: the first bytes of a stream.

#include "PacketStreams.h"
#include "StreamForms.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    using namespace Vantry::Application;

    std::string_view const head(reinterpret_cast<char const *>(data), size);
    std::optional<EssenceKind> const kind = kindOfStream(head);
    bool const hasPackets = isPacketStream(head);
    if ((kind && size < 4) || (hasPackets && elementaryStreamsIn(head).size() < 2))
        std::abort();
    return 0;
}
