#include "MetaMetadata/MetaReferenceElement.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidMetaElement.h"
#include "MetaMetadata/MetaElementTypes.h"
#include "MetaMetadata/Visitors/MetaElementVisitor.h"
#include "MetaMetadata/Visitors/NonConstMetaElementVisitor.h"

namespace Vantry { namespace MetaMetadata {

MetaReferenceElement::MetaReferenceElement(Types::UniversalLabel const & label, Keys const & allowed,
                                           Types::Identifiers::Identifier dataType) :
    MetaElement(label, dataType), MetaReferenceHolder(allowed)
{
    if (!isReferenceType(dataType))
        VANTRY_FAIL(InvalidMetaElement,
                    typeMessage("Tried to create a MetaReferenceElement with dataType: ", dataType));
}

MetaReferenceElement & MetaReferenceElement::operator=(MetaReferenceElement const & other) = default;

void MetaReferenceElement::accept(Visitors::NonConstMetaElementVisitor & visitor)
{
    visitor.visit(*this);
}

void MetaReferenceElement::accept(Visitors::MetaElementVisitor & visitor) const
{
    visitor.visit(*this);
}

}}
