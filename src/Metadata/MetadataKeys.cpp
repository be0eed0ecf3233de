#include "Metadata/MetadataKeys.h"

namespace Vantry { namespace Metadata { namespace MetadataKeys {

KLV::Key const & preface() noexcept
{
    static constexpr unsigned char BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x53, 0x01, 0x01,
                                              0x0D, 0x01, 0x01, 0x01, 0x01, 0x01, 0x2F, 0x00};
    static constexpr KLV::Key KEY(BYTES);
    return KEY;
}

}}}
