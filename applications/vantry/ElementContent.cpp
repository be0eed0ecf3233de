#include "ElementContent.h"

#include "Metadata/ArrayElement.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/MetadataSetOwner.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/SimpleElement.h"
#include "Metadata/Visitors/ElementVisitor.h"
#include "Types/StrongReference.h"

namespace Vantry { namespace Application {

namespace {

class ContentVisitor : public Metadata::Visitors::ElementVisitor
{
public:
    void visit(Metadata::BatchReferenceElement const & element) override { content = element.value(); }
    void visit(Metadata::ArrayReferenceElement const & element) override { content = element.value(); }
    void visit(Metadata::ReferenceElement const & element) override { content = element.value(); }
    void visit(Metadata::BatchElement const & element) override { content = element.value(); }
    void visit(Metadata::ArrayElement const & element) override { content = element.value(); }
    void visit(Metadata::SimpleElement const & element) override { content = element.value(); }

    Types::BaseType const * content = nullptr;
};

}

Types::BaseType const * contentOf(Metadata::Element const & element)
{
    ContentVisitor visitor;
    element.accept(visitor);
    return visitor.content;
}

Metadata::MetadataSet const * ownedBy(Metadata::MetadataSet const & set, Types::UniversalLabel const & attribute)
{
    auto const * const reference = valueOf<Types::StrongReference>(set, attribute);
    if (reference == nullptr || set.owner() == nullptr)
        return nullptr;
    auto const found = set.owner()->find(Metadata::MetadataULs::instanceUID(), reference->uuid());
    return found.empty() ? nullptr : found.front();
}

}}
