#include "IndexTables/IndexTableSegmentEntry.h"

namespace Vantry { namespace IndexTables {

IndexTableSegmentEntry::~IndexTableSegmentEntry() = default;

}}
