#pragma once

#include "Templates/auto_ptr.h"
#include "Types/Identifiers.h"

namespace Vantry {
namespace KLV {
class Value;
}
namespace Types {
class Collection;
class SimpleDataType;
}

namespace Metadata {

class Element;

/// A change of the collection that an element holds: what the schema says to
/// it, telling the owner, making it.
class CollectionChange
{
public:
    /// \param kind  Array or Batch
    /// \param held  where the element holds its collection
    CollectionChange(Element & element, Types::Identifiers::Identifier kind,
                     Templates::auto_ptr<Types::Collection> & held) :
        element_(element), kind_(kind), held_(held)
    {
    }

    /// Takes a collection without any check.
    void replace(Templates::auto_ptr<Types::Collection> collection);

    /// See CollectionElement for these.
    void load(KLV::Value & value);
    void set(Templates::auto_ptr<Types::Collection> collection);
    void append(Templates::auto_ptr<Types::SimpleDataType> item);
    void insert(unsigned int index, Templates::auto_ptr<Types::SimpleDataType> item);
    void remove(unsigned int index);

private:
    void checkCollection(Types::Collection const & collection) const;
    void checkItem(Types::SimpleDataType const * item) const;
    void checkRoom() const;
    void checkSize(Types::SimpleDataType const & item, char const * text) const;
    void makeCollection(Types::SimpleDataType const & item);
    unsigned int size() const;

    Element & element_;
    Types::Identifiers::Identifier kind_;
    Templates::auto_ptr<Types::Collection> & held_;
};

}
}
