#include "MetaMetadata/Visitors/NullMetaElementVisitor.h"

#include "MetaMetadata/MetaCollection.h"
#include "MetaMetadata/MetaReferenceCollection.h"
#include "MetaMetadata/MetaReferenceElement.h"
#include "MetaMetadata/MetaSimpleElement.h"

namespace Vantry { namespace MetaMetadata { namespace Visitors {

void NullMetaElementVisitor::visit(MetaCollectionElement const &) {}

void NullMetaElementVisitor::visit(MetaReferenceHolder const &) {}

void NullMetaElementVisitor::visit(MetaValueHolder const &) {}

void NullMetaElementVisitor::visit(MetaReferenceCollection const & element)
{
    visit(static_cast<MetaReferenceHolder const &>(element));
    visit(static_cast<MetaCollectionElement const &>(element));
}

void NullMetaElementVisitor::visit(MetaReferenceElement const & element)
{
    visit(static_cast<MetaReferenceHolder const &>(element));
}

void NullMetaElementVisitor::visit(MetaCollection const & element)
{
    visit(static_cast<MetaValueHolder const &>(element));
    visit(static_cast<MetaCollectionElement const &>(element));
}

void NullMetaElementVisitor::visit(MetaSimpleElement const &) {}

}}}
