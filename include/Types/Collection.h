#pragma once

#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"
#include "Types/BaseType.h"
#include "Types/Identifiers.h"
#include "Types/SimpleDataType.h"

namespace Vantry {

namespace KLV {
class Value;
}

namespace Types {

/// A row of simple values of one size: an Array, whose order counts, or a
/// Batch.
///
/// Wire form: number of elements (4 bytes), bytes of each (4 bytes), the
/// elements. Elements are of one type; only their size is held against it.
class VANTRY_EXPORT Collection : public BaseType
{
public:
    /// What `clone` gives a pointer to.
    using Cloned = Collection;

    ~Collection() override;

    /// Writes the wire form. An element that is shorter than the element size
    /// is filled up with zeros.
    ///
    /// \throws Exceptions::IOError when the sink fails.
    void serialize(DataIO::DataSink & sink) const override;

    /// Bytes of the wire form, in 16 bits: larger collections wrap, though
    /// `serialize` writes them whole.
    virtual unsigned short serializedSize() const;

    /// A copy of the collection with copies of its elements.
    ///
    /// \throws Exceptions::BadAlloc.
    virtual Templates::auto_ptr<Collection> clone() const = 0;

    /// Number of elements.
    unsigned int size() const noexcept;

    /// Bytes of each element on the wire; 0 where the first is yet to tell.
    unsigned int elementSize() const noexcept;

    /// An element, counted from 0.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    SimpleDataType & at(unsigned int index);
    SimpleDataType const & at(unsigned int index) const;

    /// Adds an element at the end. The first element of a collection made with
    /// element size 0 fixes the size.
    ///
    /// \throws Exceptions::InvalidElement when it hasn't the element size.
    void append(Templates::auto_ptr<SimpleDataType> element);

    /// Deletes an element; those behind it move up.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    void remove(unsigned int index);

protected:
    /// No elements, which will have `elementSize` bytes each; 0 leaves that
    /// to the first.
    explicit Collection(int elementSize);

    /// Reads elements of a type. Entries may be longer than values of that
    /// type; what is left of each is passed over.
    ///
    /// \throws Exceptions::InvalidLength when the bytes don't hold what their
    ///         head says; it carries all that were read.
    /// \throws Exceptions::NoFactory for a type that can't be made.
    Collection(KLV::Value & source, Identifiers::Identifier elementType);

    Collection(Collection const & other);
    Collection & operator=(Collection const &) = delete;

    /// Puts an element before the one at `index`, which may be `size()`.
    ///
    /// \throws Exceptions::InvalidElement when it hasn't the element size.
    /// \throws Exceptions::IndexOutOfBounds when `index` is beyond `size()`.
    void insertAt(unsigned int index, Templates::auto_ptr<SimpleDataType> element);

    /// Takes copies of the other's elements in place of its own.
    ///
    /// \throws Exceptions::InvalidElement when those haven't the element size;
    ///         the collection is as before.
    void replaceElements(Collection const & other) const;

private:
    class Elements;
    Elements * elements_;
};

}
}
