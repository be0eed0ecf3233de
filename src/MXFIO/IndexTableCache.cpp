#include "MXFIO/IndexTableCache.h"

namespace Vantry { namespace MXFIO {

IndexTableCache::IndexTableCache(unsigned int bodySID, unsigned int indexSID) : bodySID_(bodySID), indexSID_(indexSID)
{
}

IndexTableCache::~IndexTableCache() = default;

}}
