#include "MetaMetadata/MetaValueHolder.h"

#include "MetaMetadata/SameValue.h"

#include <algorithm>

namespace Vantry { namespace MetaMetadata {

MetaValueHolder::MetaValueHolder(Enumeration const & enumeration) : enumeration_(enumeration) {}

MetaValueHolder::~MetaValueHolder() = default;

bool operator==(MetaValueHolder const & left, MetaValueHolder const & right)
{
    MetaValueHolder::Enumeration const & mine = left.enumeration();
    MetaValueHolder::Enumeration const & theirs = right.enumeration();
    return std::equal(mine.begin(), mine.end(), theirs.begin(), theirs.end(),
                      [](auto const & one, auto const & other) { return sameValue(one.get(), other.get()); });
}

}}
