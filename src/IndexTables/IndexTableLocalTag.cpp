#include "IndexTables/IndexTableLocalTag.h"

namespace Vantry { namespace IndexTables {

namespace {

template <unsigned char FIRST, unsigned char SECOND>
Types::LocalTag const & tag()
{
    static constexpr unsigned char BYTES[] = {FIRST, SECOND};
    static Types::LocalTag const TAG(BYTES);
    return TAG;
}

}

// clang-format off
Types::LocalTag const & IndexTableLocalTag::instanceID()         { return tag<0x3C, 0x0A>(); }
Types::LocalTag const & IndexTableLocalTag::indexEditRate()      { return tag<0x3F, 0x0B>(); }
Types::LocalTag const & IndexTableLocalTag::indexStartPosition() { return tag<0x3F, 0x0C>(); }
Types::LocalTag const & IndexTableLocalTag::indexDuration()      { return tag<0x3F, 0x0D>(); }
Types::LocalTag const & IndexTableLocalTag::editUnitByteCount()  { return tag<0x3F, 0x05>(); }
Types::LocalTag const & IndexTableLocalTag::indexSID()           { return tag<0x3F, 0x06>(); }
Types::LocalTag const & IndexTableLocalTag::bodySID()            { return tag<0x3F, 0x07>(); }
Types::LocalTag const & IndexTableLocalTag::sliceCount()         { return tag<0x3F, 0x08>(); }
Types::LocalTag const & IndexTableLocalTag::posTableCount()      { return tag<0x3F, 0x0E>(); }
Types::LocalTag const & IndexTableLocalTag::deltaEntryArray()    { return tag<0x3F, 0x09>(); }
Types::LocalTag const & IndexTableLocalTag::indexEntryArray()    { return tag<0x3F, 0x0A>(); }
// clang-format on

}}
