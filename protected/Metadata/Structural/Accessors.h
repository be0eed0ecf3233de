#pragma once

#include "Metadata/MetadataSet.h"
#include "Metadata/Structural/SetReference.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Types/SimpleDataType.h"
#include "Types/Visitors/GetVisitor.h"

/// \file
/// What the accessors of structural metadata sets are made of: one form for
/// each kind of attribute.
///
/// Getters give null, or 0 for a count, when an attribute or its value is
/// missing or of another kind. What changes an attribute throws what its
/// element throws, Exceptions::NotFound when the schema lacks the attribute
/// and std::bad_cast when it has it as another kind.

namespace Vantry { namespace Metadata { namespace Structural {

namespace Labels = StructuralMetadataULs;

/// The value of a SimpleElement, or null.
Types::SimpleDataType const * simpleValue(MetadataSet const & set, Types::UniversalLabel const & label);

/// Stores a copy; null clears.
void setValue(MetadataSet & set, Types::UniversalLabel const & label, Types::SimpleDataType const * value);

/// Number of values or references.
unsigned int itemCount(MetadataSet const & set, Types::UniversalLabel const & label);
void removeItem(MetadataSet & set, Types::UniversalLabel const & label, unsigned int index);

/// A value of a CollectionElement, or null.
Types::SimpleDataType const * valueItem(MetadataSet const & set, Types::UniversalLabel const & label,
                                        unsigned int index);
void insertValue(MetadataSet & set, Types::UniversalLabel const & label, unsigned int index,
                 Types::SimpleDataType const & value);
void appendValue(MetadataSet & set, Types::UniversalLabel const & label, Types::SimpleDataType const & value);

/// What a ReferenceElement, or an item of a CollectionReferenceElement, refers
/// to; null for nothing.
MetadataSet * referenced(MetadataSet const & set, Types::UniversalLabel const & label);
MetadataSet * referencedItem(MetadataSet const & set, Types::UniversalLabel const & label, unsigned int index);
void insertReference(MetadataSet & set, Types::UniversalLabel const & label, unsigned int index, MetadataSet * target);
void appendReference(MetadataSet & set, Types::UniversalLabel const & label, MetadataSet * target);

/// The first set of the same owner in which an attribute has this value; null
/// for none and for no value.
MetadataSet * findSet(MetadataSet const & set, Types::UniversalLabel const & label,
                      Types::SimpleDataType const * value);

/// What `findSet` finds as `Target`; null when it is of another class.
template <class Target>
Target * findTarget(MetadataSet const & set, Types::UniversalLabel const & label, Types::SimpleDataType const * value)
{
    return dynamic_cast<Target *>(findSet(set, label, value));
}

/// A value as `Type`; null when it is of another type.
template <class Type>
Type const * valueAs(Types::SimpleDataType const * value)
{
    return value != nullptr ? Types::Visitors::GetVisitor<Type>(*value).get() : nullptr;
}

template <class Type>
Type const * getValue(MetadataSet const & set, Types::UniversalLabel const & label)
{
    return valueAs<Type>(simpleValue(set, label));
}

}}}

// Types can't stand in parentheses.
// NOLINTBEGIN(bugprone-macro-parentheses)

/// Getter and setter of a value. Like the others in here, for the source of
/// `Class`; `label` is the attribute's name among the labels.
#define VANTRY_VALUE(Class, name, label, Type)                \
    Types::Type const * Class::name() const                   \
    {                                                         \
        return getValue<Types::Type>(*this, Labels::label()); \
    }                                                         \
    void Class::name(Types::Type const * value)               \
    {                                                         \
        setValue(*this, Labels::label(), value);              \
    }

/// Count and removal of values or references.
#define VANTRY_ITEMS(Class, Name, names, label)    \
    unsigned int Class::names##Count() const       \
    {                                              \
        return itemCount(*this, Labels::label());  \
    }                                              \
    void Class::remove##Name(unsigned int index)   \
    {                                              \
        removeItem(*this, Labels::label(), index); \
    }

/// Values, but for what adds to them.
#define VANTRY_VALUE_ITEMS(Class, name, Name, names, label, Type)              \
    VANTRY_ITEMS(Class, Name, names, label)                                    \
    Types::Type const * Class::name(unsigned int index) const                  \
    {                                                                          \
        return valueAs<Types::Type>(valueItem(*this, Labels::label(), index)); \
    }

/// Values in an array.
#define VANTRY_VALUE_ARRAY(Class, name, Name, names, label, Type)        \
    VANTRY_VALUE_ITEMS(Class, name, Name, names, label, Type)            \
    void Class::add##Name(unsigned int index, Types::Type const & value) \
    {                                                                    \
        insertValue(*this, Labels::label(), index, value);               \
    }

/// Values in a batch.
#define VANTRY_VALUE_BATCH(Class, name, Name, names, label, Type) \
    VANTRY_VALUE_ITEMS(Class, name, Name, names, label, Type)     \
    void Class::append##Name(Types::Type const & value)           \
    {                                                             \
        appendValue(*this, Labels::label(), value);               \
    }

/// Getter and setter of a reference.
#define VANTRY_REFERENCE(Class, name, label, Target)                       \
    Target * Class::name() const                                           \
    {                                                                      \
        return dynamic_cast<Target *>(referenced(*this, Labels::label())); \
    }                                                                      \
    void Class::name(Target * target)                                      \
    {                                                                      \
        setReferencedMetadataSet(this, Labels::label(), target);           \
    }

/// References, but for what adds to them.
#define VANTRY_REFERENCE_ITEMS(Class, name, Name, names, label, Target)               \
    VANTRY_ITEMS(Class, Name, names, label)                                           \
    Target * Class::name(unsigned int index) const                                    \
    {                                                                                 \
        return dynamic_cast<Target *>(referencedItem(*this, Labels::label(), index)); \
    }

/// References in an array.
#define VANTRY_REFERENCE_ARRAY(Class, name, Name, names, label, Target) \
    VANTRY_REFERENCE_ITEMS(Class, name, Name, names, label, Target)     \
    void Class::add##Name(unsigned int index, Target * target)          \
    {                                                                   \
        insertReference(*this, Labels::label(), index, target);         \
    }

/// References in a batch.
#define VANTRY_REFERENCE_BATCH(Class, name, Name, names, label, Target) \
    VANTRY_REFERENCE_ITEMS(Class, name, Name, names, label, Target)     \
    void Class::append##Name(Target * target)                           \
    {                                                                   \
        appendReference(*this, Labels::label(), target);                \
    }

// NOLINTEND(bugprone-macro-parentheses)
