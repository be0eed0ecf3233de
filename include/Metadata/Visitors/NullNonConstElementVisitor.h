#pragma once

#include "Metadata/Visitors/NonConstElementVisitor.h"

namespace Vantry { namespace Metadata { namespace Visitors {

/// A visitor that does nothing, for those that mean a few classes only.
class VANTRY_EXPORT NullNonConstElementVisitor : public NonConstElementVisitor
{
public:
    ~NullNonConstElementVisitor() override;

    void visit(BatchReferenceElement &) override {}
    void visit(ArrayReferenceElement &) override {}
    void visit(ReferenceElement &) override {}
    void visit(BatchElement &) override {}
    void visit(ArrayElement &) override {}
    void visit(SimpleElement &) override {}
};

}}}
