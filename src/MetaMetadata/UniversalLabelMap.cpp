#include "MetaMetadata/UniversalLabelMap.h"

namespace Vantry { namespace MetaMetadata {

UniversalLabelMap::~UniversalLabelMap() = default;

}}
