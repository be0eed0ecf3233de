#include "Metadata/SimpleElement.h"

#include "KLV/Value.h"
#include "MetaMetadata/MetaElement.h"
#include "Metadata/OwnerCalls.h"
#include "Metadata/SchemaRules.h"
#include "Types/Factories/BaseTypeFactory.h"
#include "Types/SimpleDataType.h"

#include <utility>

namespace Vantry { namespace Metadata {

SimpleElement::SimpleElement(Templates::auto_ptr<Types::SimpleDataType> value,
                             Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute,
                             MetadataSet & set) :
    ConcreteElement(std::move(attribute), set)
{
    replace(std::move(value));
}

SimpleElement::~SimpleElement()
{
    OwnerCalls::removedWithElement(*this, value_.get());
}

void SimpleElement::load(KLV::Value & value)
{
    SchemaRules::requirePlace(*this, SchemaRules::NO_PLACE_TEXT);
    replace(Types::Factories::BaseTypeFactory::instance().create(value, metaElement()->dataType()));
}

bool SimpleElement::empty() const
{
    return !value_;
}

UInt64 SimpleElement::totalLength() const
{
    return value_ ? value_->serializedSize() : 0;
}

void SimpleElement::set(Templates::auto_ptr<Types::SimpleDataType> value, bool force)
{
    SchemaRules::checkValue(*this, value.get(), force);
    if (value)
        checkIfValueIsInEnumeration(*value);
    replace(std::move(value));
}

void SimpleElement::serializeValue(DataIO::DataSink & sink) const
{
    value_->serialize(sink);
}

void SimpleElement::replace(Templates::auto_ptr<Types::SimpleDataType> value)
{
    OwnerCalls::changed(*this, value_.get(), value.get());
    value_ = std::move(value);
}

}}
