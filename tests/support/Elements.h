#pragma once

#include "Metadata/MetadataSet.h"
#include "Metadata/SimpleElement.h"
#include "support/Schema.h"

namespace Vantry { namespace Tests {

/// The element of an attribute as `Class`.
template <class Class>
Class & elementOf(Metadata::MetadataSet & set, Types::UniversalLabel const & label)
{
    return dynamic_cast<Class &>(set.find(label));
}

template <class Class>
Class & elementOf(Metadata::MetadataSet & set, SchemaAttribute attribute)
{
    return elementOf<Class>(set, labelOf(attribute));
}

inline void identify(Metadata::MetadataSet & set, Types::UUID const & identifier)
{
    elementOf<Metadata::SimpleElement>(set, Metadata::MetadataULs::instanceUID())
        .set(Templates::auto_ptr<Types::SimpleDataType>(new Types::UUID(identifier)), false);
}

}}
