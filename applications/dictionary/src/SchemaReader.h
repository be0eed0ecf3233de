#pragma once

#include "Schema/Tables.h"

#include <string>
#include <utility>
#include <vector>

namespace Vantry { namespace Schema {

// What a schema file holds. `place` says in messages where an entry stands.

struct ElementEntry
{
    std::string symbol;
    std::string name;
    LabelBytes label;
    Types::Identifiers::Identifier type;
    Types::Identifiers::Identifier subType;
    UInt32 minimum;
    UInt32 maximum;
    UInt16 tag;
    std::vector<unsigned char> distinguished;
    std::vector<std::string> referencedSets;
    std::vector<LabelBytes> references;
    std::string place;
};

struct AttributeEntry
{
    std::string element;
    MetaMetadata::AttributeRequiredStatus::Status status;
    std::string semantics;
};

struct SetEntry
{
    std::string symbol;
    std::string name;

    // The key.
    LabelBytes label;

    std::vector<AttributeEntry> attributes;
    std::string place;
};

struct SchemaFile
{
    std::vector<ElementEntry> elements;
    std::vector<SetEntry> sets;
    std::vector<std::pair<LabelBytes, std::string>> labels;
};

/// Reads the text of a schema file, which messages name `source`.
///
/// \throws SchemaError.
SchemaFile readSchema(std::string const & text, std::string const & source);

}}
