#include "IndexTables/IndexTableSegmentListener.h"

namespace Vantry { namespace IndexTables {

IndexTableSegmentListener::~IndexTableSegmentListener() = default;

}}
