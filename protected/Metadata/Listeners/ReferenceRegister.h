#pragma once

#include "Metadata/Listeners/ReferenceEntry.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"
#include "Types/UUID.h"

namespace Vantry {
namespace Types {
class BaseType;
class SimpleDataType;
}

namespace Metadata {

class MetadataSet;

namespace Listeners {

/// Which elements refer to which identifiers, in both directions.
class ReferenceRegister
{
public:
    using ByUUID = Templates::map<Types::UUID, Templates::SharedPtr<ReferenceEntry>>;
    using ByElement = Templates::multimap<Element *, Types::UUID>;

    /// What refers to an identifier; null when nothing does.
    ReferenceEntry const * find(Types::UUID const & uuid) const;

    /// Enters the references that a value is or holds.
    void add(Element & element, Types::BaseType const & value);

    /// Enter or take out one reference; anything else is passed over.
    void addItem(Element & element, Types::SimpleDataType const & item);
    void removeItem(Element & element, Types::SimpleDataType const & item);

    /// Takes all references of an element out.
    void forget(Element & element);

    /// Enter or take out all references of a set.
    void add(MetadataSet & set);
    void forget(MetadataSet & set);

    /// The identifiers that a set refers to strongly, each once.
    Templates::vector<Types::UUID> ownedBy(MetadataSet & set) const;

    ByUUID byUUID;
    ByElement byElement;

private:
    void takeOut(Element & element, Types::UUID const & uuid);
};

}
}
}
