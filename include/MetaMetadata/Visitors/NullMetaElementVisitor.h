#pragma once

#include "MetaMetadata/Visitors/MetaElementVisitor.h"

namespace Vantry { namespace MetaMetadata { namespace Visitors {

/// Does nothing, except that concrete elements are passed on to the visits of
/// their parts: first as a holder, then as a collection.
class VANTRY_EXPORT NullMetaElementVisitor : public MetaElementVisitor
{
public:
    void visit(MetaCollectionElement const & element) override;
    void visit(MetaReferenceHolder const & holder) override;
    void visit(MetaValueHolder const & holder) override;
    void visit(MetaReferenceCollection const & element) override;
    void visit(MetaReferenceElement const & element) override;
    void visit(MetaCollection const & element) override;
    void visit(MetaSimpleElement const & element) override;
};

}}}
