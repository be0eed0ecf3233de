#pragma once

#include "Metadata/Structural/Visitors/NonConstDelegateMetadataSetVisitor.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace Visitors {

/// Asks a set whether its class is `T` or derived from it:
///
///     GetMetadataSetVisitor<GenericPackage> visitor;
///     set.accept(visitor);
///     if (visitor.set != nullptr) ...
template <class T>
class VANTRY_EXPORT GetMetadataSetVisitor : public NonConstDelegateMetadataSetVisitor
{
public:
    using NonConstDelegateMetadataSetVisitor::visit;

    void visit(T & visited) override { set = &visited; }

    /// The set that was visited last as `T`; null when none was.
    T * set = nullptr;
};

}}}}
