#include "MetaMetadata/MetaReferenceCollection.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidMetaElement.h"
#include "MetaMetadata/MetaElementTypes.h"
#include "MetaMetadata/Visitors/MetaElementVisitor.h"
#include "MetaMetadata/Visitors/NonConstMetaElementVisitor.h"

namespace Vantry { namespace MetaMetadata {

MetaReferenceCollection::MetaReferenceCollection(Types::UniversalLabel const & label,
                                                 CollectionSizeLimits const & limits, Keys const & allowed,
                                                 Types::Identifiers::Identifier dataType,
                                                 Types::Identifiers::Identifier dataSubType) :
    MetaCollectionElement(label, limits, dataType, dataSubType), MetaReferenceHolder(allowed)
{
    // The text says dataType, though the sub type is meant.
    if (!isReferenceType(dataSubType))
        VANTRY_FAIL(InvalidMetaElement,
                    typeMessage("Tried to create a MetaReferenceCollection with dataType: ", dataSubType));
}

MetaReferenceCollection & MetaReferenceCollection::operator=(MetaReferenceCollection const & other) = default;

void MetaReferenceCollection::accept(Visitors::NonConstMetaElementVisitor & visitor)
{
    visitor.visit(*this);
}

void MetaReferenceCollection::accept(Visitors::MetaElementVisitor & visitor) const
{
    visitor.visit(*this);
}

}}
