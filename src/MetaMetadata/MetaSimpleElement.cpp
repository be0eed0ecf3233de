#include "MetaMetadata/MetaSimpleElement.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidMetaElement.h"
#include "MetaMetadata/MetaElementTypes.h"
#include "MetaMetadata/Visitors/MetaElementVisitor.h"
#include "MetaMetadata/Visitors/NonConstMetaElementVisitor.h"

namespace Vantry { namespace MetaMetadata {

MetaSimpleElement::MetaSimpleElement(Types::UniversalLabel const & label, Types::Identifiers::Identifier dataType) :
    MetaSimpleElement(label, Enumeration(), dataType)
{
}

MetaSimpleElement::MetaSimpleElement(Types::UniversalLabel const & label, Enumeration const & enumeration,
                                     Types::Identifiers::Identifier dataType) :
    MetaElement(label, dataType), MetaValueHolder(enumeration)
{
    if (isCollectionType(dataType) || isReferenceType(dataType))
        VANTRY_FAIL(InvalidMetaElement, typeMessage("Tried to create a MetaSimpleElement with dataType: ", dataType));
}

MetaSimpleElement & MetaSimpleElement::operator=(MetaSimpleElement const & other) = default;

void MetaSimpleElement::accept(Visitors::NonConstMetaElementVisitor & visitor)
{
    visitor.visit(*this);
}

void MetaSimpleElement::accept(Visitors::MetaElementVisitor & visitor) const
{
    visitor.visit(*this);
}

}}
