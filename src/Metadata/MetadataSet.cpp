#include "Metadata/MetadataSet.h"

#include "DataIO/DataSink.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidMetadataSet.h"
#include "Exceptions/NotFound.h"
#include "KLV/Packet.h"
#include "KLV/PacketHead.h"
#include "MetaMetadata/MetaElement.h"
#include "MetaMetadata/MetaMetadataSet.h"
#include "Metadata/Element.h"
#include "Metadata/ElementCast.h"
#include "Metadata/ElementFactory.h"
#include "Metadata/MetadataSetImpl.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/SetCloner.h"
#include "Metadata/SetLoader.h"
#include "Metadata/SimpleElement.h"
#include "Metadata/Visitors/MetadataSetVisitor.h"
#include "Metadata/Visitors/NonConstMetadataSetVisitor.h"
#include "Types/UUID.h"
#include "Types/Visitors/GetVisitor.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace Metadata {

namespace {

unsigned char const TAG_SIZE = 2;

// The label stands on the first characters of the text, not behind it:
// applications know the message in this form.
Templates::wstring notFoundText(Types::UniversalLabel const & label)
{
    Templates::wstring text = Platform::stringToWstring("No element with this Universal Label was found: ");
    Templates::wstring const labelText = label.toString(Types::StringRepresentationEncodingType::DOTTED_BYTES);
    return text.replace(0, labelText.size(), labelText);
}

UInt64 sizeOf(Element const & element, KLV::Key const & key)
{
    return element.empty() ? 0 : element.totalLength() + key.localTagFieldLength() + key.lengthFieldLength();
}

Types::UUID const * asUUID(Types::SimpleDataType const & value)
{
    return Types::Visitors::GetVisitor<Types::UUID>(value).get();
}

}

MetadataSet::MetadataSet(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                         MetadataSetOwner * owner) :
    impl_(nullptr)
{
    if (metaMetadataSet != nullptr && metaMetadataSet->key() != key)
        VANTRY_FAIL(InvalidMetadataSet, "MetadataSet Key and MetaMetadataSet do not agree");

    Templates::auto_ptr<Impl> impl(new Impl(key, metaMetadataSet, owner));
    if (metaMetadataSet != nullptr)
        impl->appendSchema(*this);
    impl_ = impl.release();
}

MetadataSet::~MetadataSet()
{
    delete impl_;
}

void MetadataSet::load(KLV::Packet & packet, PartitionDictionary const & dictionary, bool strict)
{
    impl_->berLength = packet.berLength();

    unsigned char const lengthSize = impl_->key.lengthFieldLength();
    if (impl_->key.localTagFieldLength() != TAG_SIZE || lengthSize == 0)
        VANTRY_FAIL(InvalidMetadataSet, "Invalid Metadata Set local field length or length field length");

    SetLoader(*this, *impl_, dictionary, strict).load(packet.value(), lengthSize);
}

MetaMetadata::MetaMetadataSet const * MetadataSet::metaMetadataSet() const
{
    return impl_->schema;
}

KLV::Key const & MetadataSet::key() const
{
    return impl_->key;
}

Types::UUID const * MetadataSet::instanceUID() const
{
    Element const * const element = findElement(MetadataULs::instanceUID());
    SimpleElement const * const simple = element != nullptr ? elementAs<SimpleElement>(*element) : nullptr;
    if (simple != nullptr && !simple->empty())
        return asUUID(*simple->value());
    if (element != nullptr && !element->empty())
        return nullptr;

    for (Element const * invalid : impl_->invalid)
    {
        SimpleElement const * const candidate =
            invalid->label() == MetadataULs::instanceUID() ? elementAs<SimpleElement>(*invalid) : nullptr;
        if (candidate != nullptr)
            return candidate->empty() ? nullptr : asUUID(*candidate->value());
    }
    return nullptr;
}

Element & MetadataSet::find(Types::UniversalLabel const & label)
{
    return const_cast<Element &>(std::as_const(*this).find(label));
}

Element const & MetadataSet::find(Types::UniversalLabel const & label) const
{
    Element const * const element = findElement(label);
    if (element == nullptr)
        VANTRY_FAIL(NotFound, notFoundText(label));
    return *element;
}

unsigned int MetadataSet::size() const
{
    return static_cast<unsigned int>(impl_->elements.size());
}

void MetadataSet::serialize(DataIO::DataSink & sink, PartitionDictionary const & dictionary, bool includeInvalid) const
{
    UInt64 const headSize = impl_->key.serializedSize() + impl_->berLength;
    KLV::writePacketHead(sink, impl_->key, serializedSize(includeInvalid) - headSize, impl_->berLength);

    for (Entry const & entry : impl_->elements)
        entry.second->serialize(sink, dictionary, impl_->key.lengthFieldLength());
    if (includeInvalid)
        for (Element const * element : impl_->invalid)
            element->serialize(sink, dictionary, impl_->key.lengthFieldLength());
}

UInt64 MetadataSet::serializedSize(bool includeInvalid) const
{
    UInt64 size = impl_->key.serializedSize() + impl_->berLength;
    for (Entry const & entry : impl_->elements)
        size += sizeOf(*entry.second, impl_->key);
    if (includeInvalid)
        for (Element const * element : impl_->invalid)
            size += sizeOf(*element, impl_->key);
    return size;
}

void MetadataSet::accept(Visitors::NonConstMetadataSetVisitor & visitor)
{
    visitor.visit(*this);
}

void MetadataSet::accept(Visitors::MetadataSetVisitor & visitor) const
{
    visitor.visit(*this);
}

Element * MetadataSet::findElement(Types::UniversalLabel const & label) noexcept
{
    return impl_->find(label);
}

Element const * MetadataSet::findElement(Types::UniversalLabel const & label) const noexcept
{
    return impl_->find(label);
}

MetadataSetOwner * MetadataSet::owner() const noexcept
{
    return impl_->owner;
}

unsigned char MetadataSet::berLength() const noexcept
{
    return impl_->berLength;
}

void MetadataSet::berLength(unsigned char berLength) noexcept
{
    impl_->berLength = berLength;
}

MetadataSet::iterator MetadataSet::begin() noexcept
{
    return impl_->elements.begin();
}

MetadataSet::iterator MetadataSet::end() noexcept
{
    return impl_->elements.end();
}

MetadataSet::const_iterator MetadataSet::begin() const noexcept
{
    return impl_->elements.begin();
}

MetadataSet::const_iterator MetadataSet::end() const noexcept
{
    return impl_->elements.end();
}

MetadataSet::invalid_iterator MetadataSet::invalidBegin() noexcept
{
    return impl_->invalid.begin();
}

MetadataSet::invalid_iterator MetadataSet::invalidEnd() noexcept
{
    return impl_->invalid.end();
}

MetadataSet::const_invalid_iterator MetadataSet::invalidBegin() const noexcept
{
    return impl_->invalid.begin();
}

MetadataSet::const_invalid_iterator MetadataSet::invalidEnd() const noexcept
{
    return impl_->invalid.end();
}

unsigned int MetadataSet::invalidSize() const noexcept
{
    return static_cast<unsigned int>(impl_->invalid.size());
}

Element & MetadataSet::createInvalidElement(Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute)
{
    impl_->appendInvalid(Templates::auto_ptr<Element>(ElementFactory::create(attribute, *this)));
    return *impl_->invalid.back();
}

void MetadataSet::removedInvalidElement(Element const * element)
{
    auto const found = std::find(impl_->invalid.begin(), impl_->invalid.end(), element);
    if (found == impl_->invalid.end())
        VANTRY_FAIL(NotFound, "Element not found in Invalid Element list!");

    Templates::auto_ptr<Element> const removed(*found);
    impl_->invalid.erase(found);
}

MetadataSet * MetadataSet::clone(bool deep, MetadataSetOwner * owner) const
{
    return SetCloner(deep, owner != nullptr ? owner : impl_->owner).clone(*this);
}

}}
