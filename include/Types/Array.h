#pragma once

#include "Types/Collection.h"
#include "Types/Concrete.h"

namespace Vantry { namespace Types {

/// A collection whose order counts.
class VANTRY_EXPORT Array : public Concrete<Array, Collection>
{
public:
    /// Reads elements of a type. Entries may be longer than values of that
    /// type; what is left of each is passed over.
    ///
    /// \throws Exceptions::InvalidLength when the bytes don't hold what their
    ///         head says; it carries all that were read.
    /// \throws Exceptions::NoFactory for a type that can't be made.
    Array(KLV::Value & source, Identifiers::Identifier elementType) : Concrete(source, elementType) {}

    /// No elements, which will have `elementSize` bytes each; 0 leaves that
    /// to the first.
    explicit Array(int elementSize) : Concrete(elementSize) {}

    Array(Array const & other) = default;

    /// Takes copies of the other's elements in place of its own. The
    /// collection is a handle, so this is const and returns a copy.
    ///
    /// \throws Exceptions::InvalidElement when they haven't the element size
    ///         of this one; it is as before.
    Array operator=(Array const & other) const;

    using Collection::insertAt;
};

extern template class Concrete<Array, Collection>;

}}
