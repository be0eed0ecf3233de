#pragma once

#include "MetaMetadata/MetaElement.h"
#include "MetaMetadata/Visitors/NullMetaElementVisitor.h"

namespace Vantry { namespace MetaMetadata { namespace Visitors {

/// Finds out whether an element is, or has the part, `T`: one of
/// MetaCollectionElement, MetaReferenceCollection and MetaReferenceHolder.
template <class T>
class VANTRY_EXPORT GetMetaElementVisitor : public NullMetaElementVisitor
{
public:
    using NullMetaElementVisitor::visit;

    void visit(T const & visited) override { element = &visited; }

    /// What was visited as `T`; null when nothing was.
    T const * element = nullptr;
};

/// The element as `T`, or null.
template <class T>
T const * getMetaElement(MetaElement const * element)
{
    GetMetaElementVisitor<T> visitor;
    if (element != nullptr)
        element->accept(visitor);
    return visitor.element;
}

}}}
