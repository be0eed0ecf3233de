#pragma once

#include "MetaMetadata/AttributeRequiredStatus.h"
#include "Platform/Integers.h"
#include "Types/Identifiers.h"

#include <cstddef>

/// The schema of header metadata as data, and dictionaries made from it.
namespace Vantry { namespace Schema {

/// A row of `T` that somebody else owns.
template <class T>
struct Row
{
    T const * first = nullptr;
    std::size_t count = 0;

    T const * begin() const { return first; }
    T const * end() const { return first + count; }
};

/// 16 bytes of a key or label.
struct LabelBytes
{
    unsigned char bytes[16];
};

/// An attribute, wherever it stands. Texts are UTF-8.
struct ElementRow
{
    /// The name in schema files and in machine-readable output.
    char const * symbol;

    /// The name for people.
    char const * name;

    LabelBytes label;

    /// For collections, `subType` is the type of each value.
    Types::Identifiers::Identifier type;
    Types::Identifiers::Identifier subType;

    /// How many values a collection takes.
    UInt32 minimum;
    UInt32 maximum;

    /// The static local tag, 0 when there is none.
    UInt16 tag;

    /// The wire form of the value that stands for "not known"; none when
    /// empty.
    Row<unsigned char> distinguished;

    /// The keys of the sets that a reference may mean.
    Row<LabelBytes> references;
};

/// An attribute's place in a set.
struct AttributeRow
{
    /// Index of the attribute in `Tables::elements`.
    UInt32 element;

    MetaMetadata::AttributeRequiredStatus::Status status;

    /// On what the presence of the attribute depends; empty when on nothing.
    char const * semantics;
};

struct SetRow
{
    char const * symbol;
    char const * name;
    LabelBytes key;
    Row<AttributeRow> attributes;
};

/// A label that is no attribute, such as an operational pattern.
struct NameRow
{
    LabelBytes label;
    char const * name;
};

/// A whole schema. Labels stand in ascending order.
struct Tables
{
    Row<ElementRow> elements;
    Row<SetRow> sets;
    Row<NameRow> labels;
};

/// The schema that comes with the program: the structural sets, DMS-1 and the
/// sets of later standards that files in use have.
Tables const & builtInTables();

}}
