#include "Metadata/BatchElement.h"

#include "Metadata/OwnerCalls.h"
#include "Types/Collection.h"

#include <utility>

namespace Vantry { namespace Metadata {

BatchElement::BatchElement(Templates::auto_ptr<Types::Collection> value,
                           Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute,
                           MetadataSet & set) :
    ConcreteElement(Types::Identifiers::Batch, std::move(attribute), set)
{
    replace(std::move(value));
}

BatchElement::~BatchElement()
{
    OwnerCalls::removedWithElement(*this, value());
}

}}
