#include "MetaMetadata/MetaElement.h"

#include "MetaMetadata/MetaCollectionElement.h"
#include "MetaMetadata/MetaReferenceHolder.h"
#include "MetaMetadata/MetaValueHolder.h"

#include <typeinfo>

namespace Vantry { namespace MetaMetadata {

namespace {

// Whether two elements of one class agree in the part that `Part` is of them;
// true for elements without it.
template <class Part, class Equal>
bool samePart(MetaElement const & left, MetaElement const & right, Equal const & equal)
{
    auto const * const part = dynamic_cast<Part const *>(&left);
    return part == nullptr || equal(*part, dynamic_cast<Part const &>(right));
}

bool sameCollection(MetaCollectionElement const & left, MetaCollectionElement const & right)
{
    return left.dataSubType() == right.dataSubType() &&
           left.collectionSizeLimits().minimum == right.collectionSizeLimits().minimum &&
           left.collectionSizeLimits().maximum == right.collectionSizeLimits().maximum;
}

template <class Holder>
bool sameHolder(Holder const & left, Holder const & right)
{
    return left == right;
}

}

MetaElement::MetaElement(Types::UniversalLabel const & label, Types::Identifiers::Identifier dataType) :
    universalLabel_(label), dataType_(dataType)
{
}

MetaElement::~MetaElement() = default;

MetaElement & MetaElement::operator=(MetaElement const & other) = default;

bool operator==(MetaElement const & left, MetaElement const & right)
{
    if (&left == &right)
        return true;

    return typeid(left) == typeid(right) && left.dataType() == right.dataType() &&
           left.universalLabel() == right.universalLabel() &&
           static_cast<PropertyMap const &>(left) == static_cast<PropertyMap const &>(right) &&
           samePart<MetaCollectionElement>(left, right, sameCollection) &&
           samePart<MetaValueHolder>(left, right, sameHolder<MetaValueHolder>) &&
           samePart<MetaReferenceHolder>(left, right, sameHolder<MetaReferenceHolder>);
}

}}
