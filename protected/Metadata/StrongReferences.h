#pragma once

#include "Metadata/Visitors/NullElementVisitor.h"
#include "Platform/Allocation.h"
#include "Types/Visitors/NullVisitor.h"

namespace Vantry {
namespace Types {
class Collection;
}

namespace Metadata {

class MetadataSet;

/// Meets each strong reference of the elements that it visits, in order.
class StrongReferences : public Visitors::NullElementVisitor, public Types::Visitors::NullVisitor
{
public:
    VANTRY_CLASS_ALLOCATION

    ~StrongReferences() override;

    using NullElementVisitor::visit;
    using Types::Visitors::NullVisitor::visit;

    void visit(ReferenceElement const & element) override;
    void visit(ArrayReferenceElement const & element) override;
    void visit(BatchReferenceElement const & element) override;
    void visit(Types::StrongReference const & reference) override = 0;

    /// Visits the elements of a set by label and, if wanted, the invalid ones.
    void visitElements(MetadataSet const & set, bool withInvalid);

private:
    void visitItems(Types::Collection const * collection);
};

}
}
