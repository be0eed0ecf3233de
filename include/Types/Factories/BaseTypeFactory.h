#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/auto_ptr.h"
#include "Types/Collection.h"
#include "Types/Identifiers.h"
#include "Types/SimpleDataType.h"

namespace Vantry {

namespace KLV {
class Value;
}

namespace Types { namespace Factories {

/// Makes values from bytes by the identifier of their type, which is how
/// metadata is read that a dictionary describes.
///
/// Types are registered at start-up; the register has no lock.
class VANTRY_EXPORT BaseTypeFactory
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Makes a simple value from what the source holds.
    using SimpleCreator = Templates::auto_ptr<SimpleDataType> (*)(KLV::Value & source);

    /// Makes a collection, whose elements are of type `elementType`.
    using CollectionCreator = Templates::auto_ptr<Collection> (*)(KLV::Value & source,
                                                                  Identifiers::Identifier elementType);

    virtual ~BaseTypeFactory();

    /// The factory of the process. It makes collections of Array and Batch and
    /// simple values of all identifiers but these two, DUMMY_TO_REPLACE_EDIT_RATE
    /// and Key. The entries of index tables, DeltaEntryType and
    /// IndexEntryType, come out as Unknown.
    static BaseTypeFactory & instance();

    /// Reads a collection.
    ///
    /// \throws Exceptions::NoFactory when there is no such type of
    ///         collections, or of elements.
    /// \throws Exceptions::InvalidLength when the source has not the bytes.
    virtual Templates::auto_ptr<Collection> create(KLV::Value & source, Identifiers::Identifier type,
                                                   Identifiers::Identifier elementType) = 0;

    /// Reads a simple value.
    ///
    /// \throws Exceptions::NoFactory when there is no such type.
    /// \throws Exceptions::InvalidLength when the source has not the bytes.
    /// \throws Exceptions::InvalidValue when the type doesn't allow them.
    virtual Templates::auto_ptr<SimpleDataType> create(KLV::Value & source, Identifiers::Identifier type) = 0;

    /// Has simple values of a type made by `creator` from now on; returns
    /// true.
    virtual bool registerSimpleType(Identifiers::Identifier type, SimpleCreator creator) = 0;
    virtual bool hasSimpleType(Identifiers::Identifier type) const = 0;

    /// Has collections of a type made by `creator` from now on; returns true.
    virtual bool registerCollectionType(Identifiers::Identifier type, CollectionCreator creator) = 0;
    virtual bool hasCollectionType(Identifiers::Identifier type) const = 0;
};

}}
}
