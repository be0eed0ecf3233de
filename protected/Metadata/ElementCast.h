#pragma once

#include "Metadata/Element.h"
#include "Metadata/Visitors/NullElementVisitor.h"
#include "Metadata/Visitors/NullNonConstElementVisitor.h"

namespace Vantry { namespace Metadata {

/// Keeps the visited element if it is a `T`.
template <class T>
class GetElement final : public Visitors::NullNonConstElementVisitor
{
public:
    using NullNonConstElementVisitor::visit;

    void visit(T & visited) override { element = &visited; }

    T * element = nullptr;
};

template <class T>
class GetElement<T const> final : public Visitors::NullElementVisitor
{
public:
    using NullElementVisitor::visit;

    void visit(T const & visited) override { element = &visited; }

    T const * element = nullptr;
};

/// The element as `T`, one of the six concrete classes, or null.
template <class T>
T * elementAs(Element & element)
{
    GetElement<T> visitor;
    element.accept(visitor);
    return visitor.element;
}

template <class T>
T const * elementAs(Element const & element)
{
    GetElement<T const> visitor;
    element.accept(visitor);
    return visitor.element;
}

}}
