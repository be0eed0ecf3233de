#include "Metadata/ReferenceElement.h"

#include "KLV/Value.h"
#include "MetaMetadata/MetaElement.h"
#include "Metadata/OwnerCalls.h"
#include "Metadata/References.h"
#include "Metadata/SchemaRules.h"
#include "Types/Factories/BaseTypeFactory.h"
#include "Types/Reference.h"

#include <utility>

namespace Vantry { namespace Metadata {

ReferenceElement::ReferenceElement(Templates::auto_ptr<Types::Reference> value,
                                   Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute,
                                   MetadataSet & set) :
    ConcreteElement(std::move(attribute), set), ReferenceHolder(metaElement())
{
    replace(std::move(value));
}

ReferenceElement::~ReferenceElement()
{
    OwnerCalls::removedWithElement(*this, value_.get());
}

void ReferenceElement::load(KLV::Value & value)
{
    SchemaRules::requirePlace(*this, SchemaRules::NO_PLACE_TEXT);
    replace(References::asReference(
        Types::Factories::BaseTypeFactory::instance().create(value, metaElement()->dataType())));
}

bool ReferenceElement::empty() const
{
    return !value_;
}

UInt64 ReferenceElement::totalLength() const
{
    return value_ ? value_->serializedSize() : 0;
}

void ReferenceElement::set(MetadataSet const * target)
{
    SchemaRules::requirePlace(*this, SchemaRules::NO_PLACE_TEXT);

    Templates::auto_ptr<Types::Reference> reference;
    if (target != nullptr)
    {
        checkIfSetCanBeReferenced(target);
        reference = References::referenceTo(*target, metaElement()->dataType());
    }
    replace(std::move(reference));
}

void ReferenceElement::set(Templates::auto_ptr<Types::SimpleDataType> value)
{
    SchemaRules::checkValue(*this, value.get(), false);
    replace(References::asReference(std::move(value)));
}

void ReferenceElement::setUnverifiedReference(Templates::auto_ptr<Types::Reference> reference)
{
    set(Templates::auto_ptr<Types::SimpleDataType>(std::move(reference)));
}

void ReferenceElement::serializeValue(DataIO::DataSink & sink) const
{
    value_->serialize(sink);
}

void ReferenceElement::replace(Templates::auto_ptr<Types::Reference> value)
{
    OwnerCalls::changed(*this, value_.get(), value.get());
    value_ = std::move(value);
}

}}
