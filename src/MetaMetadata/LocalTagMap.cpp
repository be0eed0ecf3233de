#include "MetaMetadata/LocalTagMap.h"

namespace Vantry { namespace MetaMetadata {

LocalTagMap::~LocalTagMap() = default;

}}
