#include "Metadata/ElementValue.h"

#include "Metadata/ArrayElement.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/SimpleElement.h"
#include "Metadata/Visitors/ElementVisitor.h"
#include "Types/Collection.h"
#include "Types/Reference.h"

namespace Vantry { namespace Metadata {

namespace {

class GetValue final : public Visitors::ElementVisitor
{
public:
    void visit(BatchReferenceElement const & element) override { value = element.value(); }
    void visit(ArrayReferenceElement const & element) override { value = element.value(); }
    void visit(ReferenceElement const & element) override { value = element.value(); }
    void visit(BatchElement const & element) override { value = element.value(); }
    void visit(ArrayElement const & element) override { value = element.value(); }
    void visit(SimpleElement const & element) override { value = element.value(); }

    Types::BaseType const * value = nullptr;
};

}

Types::BaseType const * valueOf(Element const & element)
{
    GetValue visitor;
    element.accept(visitor);
    return visitor.value;
}

}}
