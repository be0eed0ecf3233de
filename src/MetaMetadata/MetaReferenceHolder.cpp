#include "MetaMetadata/MetaReferenceHolder.h"

namespace Vantry { namespace MetaMetadata {

MetaReferenceHolder::MetaReferenceHolder(Keys const & allowed) : allowed_(allowed) {}

MetaReferenceHolder::~MetaReferenceHolder() = default;

void MetaReferenceHolder::addAllowedMetadataSet(KLV::Key key)
{
    allowed_.push_back(key);
}

bool operator==(MetaReferenceHolder const & left, MetaReferenceHolder const & right)
{
    return left.allowedMetadataSets() == right.allowedMetadataSets();
}

}}
