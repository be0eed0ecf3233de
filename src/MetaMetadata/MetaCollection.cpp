#include "MetaMetadata/MetaCollection.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidMetaElement.h"
#include "MetaMetadata/MetaElementTypes.h"
#include "MetaMetadata/Visitors/MetaElementVisitor.h"
#include "MetaMetadata/Visitors/NonConstMetaElementVisitor.h"

namespace Vantry { namespace MetaMetadata {

MetaCollection::MetaCollection(Types::UniversalLabel const & label, CollectionSizeLimits const & limits,
                               Types::Identifiers::Identifier dataType, Types::Identifiers::Identifier dataSubType) :
    MetaCollection(label, limits, Enumeration(), dataType, dataSubType)
{
}

MetaCollection::MetaCollection(Types::UniversalLabel const & label, CollectionSizeLimits const & limits,
                               Enumeration const & enumeration, Types::Identifiers::Identifier dataType,
                               Types::Identifiers::Identifier dataSubType) :
    MetaCollectionElement(label, limits, dataType, dataSubType), MetaValueHolder(enumeration)
{
    if (isCollectionType(dataSubType) || isReferenceType(dataSubType))
        VANTRY_FAIL(InvalidMetaElement,
                    typeMessage("Tried to create a MetaCollection with dataSubType: ", dataSubType));
}

MetaCollection & MetaCollection::operator=(MetaCollection const & other) = default;

void MetaCollection::accept(Visitors::NonConstMetaElementVisitor & visitor)
{
    visitor.visit(*this);
}

void MetaCollection::accept(Visitors::MetaElementVisitor & visitor) const
{
    visitor.visit(*this);
}

}}
