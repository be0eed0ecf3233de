#pragma once

#include "Types/Visitors/NullVisitor.h"
#include "Types/Visitors/Visitable.h"

namespace Vantry { namespace Types { namespace Visitors {

/// Asks a value whether its class is `X`:
///
///     Int64 const * number = GetVisitor<Int64>(value).get();
///
/// A class derived from `X` is not `X`: a Length is no Int64 here. Each value
/// needs a visitor of its own, since what isn't an `X` changes nothing.
template <class X>
class GetVisitor : public NullVisitor
{
public:
    using NullVisitor::visit;

    GetVisitor() = default;

    /// Visits the value.
    explicit GetVisitor(Visitable const & value) { value.accept(*this); }

    void visit(X const & value) override { value_ = &value; }

    /// What was visited if it is an `X`, or null. It lives as long as the
    /// value.
    X const * get() const noexcept { return value_; }

private:
    X const * value_ = nullptr;
};

}}}
