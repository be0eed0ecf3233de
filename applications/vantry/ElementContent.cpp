#include "ElementContent.h"

#include "Metadata/ArrayElement.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/SimpleElement.h"
#include "Metadata/Visitors/ElementVisitor.h"

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

}}
