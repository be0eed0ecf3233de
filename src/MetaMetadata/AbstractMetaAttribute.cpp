#include "MetaMetadata/AbstractMetaAttribute.h"

#include "MetaMetadata/AbstractMetaAttributeVisitor.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/MisplacedAttribute.h"
#include "MetaMetadata/UnknownAttribute.h"

namespace Vantry { namespace MetaMetadata {

AbstractMetaAttribute::~AbstractMetaAttribute() = default;

AbstractMetaAttributeVisitor::~AbstractMetaAttributeVisitor() = default;

void MetaAttribute::accept(AbstractMetaAttributeVisitor & visitor) const
{
    visitor.visit(*this);
}

void MisplacedAttribute::accept(AbstractMetaAttributeVisitor & visitor) const
{
    visitor.visit(*this);
}

void UnknownAttribute::accept(AbstractMetaAttributeVisitor & visitor) const
{
    visitor.visit(*this);
}

bool operator==(MisplacedAttribute const & left, MisplacedAttribute const & right) noexcept
{
    return &left.metaElement() == &right.metaElement();
}

bool operator==(UnknownAttribute const & left, UnknownAttribute const & right)
{
    return left.reason() == right.reason() && left.localTag() == right.localTag();
}

}}
