#include "MetaMetadata/MetaAttribute.h"

#include "MetaMetadata/SameValue.h"
#include "Types/BaseType.h"

namespace Vantry { namespace MetaMetadata {

namespace {

unsigned char const NO_TAG[] = {0, 0};

}

MetaAttribute::MetaAttribute(MetaElement const & metaElement, AttributeRequiredStatus::Status status,
                             Templates::auto_ptr<Types::BaseType const> distinguished,
                             Types::LocalTag const * staticTag) :
    metaElement_(&metaElement),
    status_(status),
    distinguished_(distinguished),
    hasStaticTag_(staticTag != nullptr),
    staticTag_(staticTag != nullptr ? *staticTag : Types::LocalTag(NO_TAG))
{
}

MetaAttribute::MetaAttribute(MetaAttribute const & other) = default;

MetaAttribute & MetaAttribute::operator=(MetaAttribute const & other) = default;

MetaAttribute::~MetaAttribute() = default;

bool operator==(MetaAttribute const & left, MetaAttribute const & right)
{
    Types::BaseType const * const distinguished = left.getDistinguishedValue();
    return left.requiredStatus() == right.requiredStatus() &&
           (left.staticLocalTag() == nullptr) == (right.staticLocalTag() == nullptr) &&
           (distinguished == nullptr || sameValue(distinguished, right.getDistinguishedValue())) &&
           static_cast<PropertyMap const &>(left) == static_cast<PropertyMap const &>(right);
}

}}
