#pragma once

#include "Metadata/Visitors/ElementVisitor.h"

namespace Vantry { namespace Metadata { namespace Visitors {

/// A visitor that does nothing, for those that mean a few classes only.
class VANTRY_EXPORT NullElementVisitor : public ElementVisitor
{
public:
    ~NullElementVisitor() override;

    void visit(BatchReferenceElement const &) override {}
    void visit(ArrayReferenceElement const &) override {}
    void visit(ReferenceElement const &) override {}
    void visit(BatchElement const &) override {}
    void visit(ArrayElement const &) override {}
    void visit(SimpleElement const &) override {}
};

}}}
