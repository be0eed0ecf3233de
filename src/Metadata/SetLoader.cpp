#include "Metadata/SetLoader.h"

#include "DataIO/DataSource.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidMetaAttribute.h"
#include "Exceptions/InvalidValue.h"
#include "Exceptions/NoFactory.h"
#include "KLV/Value.h"
#include "MetaMetadata/Dictionary.h"
#include "MetaMetadata/MetaCollectionElement.h"
#include "MetaMetadata/MetaReferenceHolder.h"
#include "MetaMetadata/MisplacedAttribute.h"
#include "MetaMetadata/UnknownAttribute.h"
#include "MetaMetadata/Visitors/GetMetaElementVisitor.h"
#include "Metadata/ArrayElement.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/DMS1/DMS1MetadataULs.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionDictionary.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/References.h"
#include "Metadata/SchemaRules.h"
#include "Metadata/SimpleElement.h"
#include "Metadata/TagResolution.h"
#include "Types/Factories/BaseTypeFactory.h"
#include "Types/ReadAvailable.h"
#include "Types/Reference.h"
#include "Types/Unknown.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace Metadata {

namespace {

using Attribute = Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const>;
using MetaMetadata::MetaCollectionElement;
using MetaMetadata::MetaElement;
using MetaMetadata::MetaReferenceHolder;
using MetaMetadata::UnknownAttribute;
using MetaMetadata::Visitors::getMetaElement;
using Types::Factories::BaseTypeFactory;

unsigned const TAG_SIZE = 2;

// The tag of the packages in a ContentStorage. Files are in use whose primer
// gives it another label and which mean the packages all the same.
constexpr unsigned char PACKAGES_TAG_BYTES[] = {0x19, 0x01};
Types::LocalTag const PACKAGES_TAG(PACKAGES_TAG_BYTES);

// The extended clip identifier of DMS-1 is an extended UMID. Writers are in
// use that give the basic half alone.
UInt64 const BASIC_UMID_SIZE = 32;
UInt64 const EXTENDED_UMID_SIZE = 64;

// Bytes in memory as a source.
class SpanSource final : public DataIO::DataSource
{
public:
    SpanSource(unsigned char const * begin, unsigned char const * end) : begin_(begin), at_(begin), end_(end) {}

    UInt64 absoluteOffset() const override { return static_cast<UInt64>(at_ - begin_); }
    bool endOfStream() const override { return at_ == end_; }

    UInt64 read(unsigned char * destination, UInt64 howMuch) override
    {
        UInt64 const size = skip(howMuch);
        std::copy_n(at_ - size, size, destination);
        return size;
    }

    UInt64 skip(UInt64 howMuch) override
    {
        UInt64 const size = std::min(howMuch, static_cast<UInt64>(end_ - at_));
        at_ += size;
        return size;
    }

private:
    unsigned char const * begin_;
    unsigned char const * at_;
    unsigned char const * end_;
};

[[noreturn]] void failLength(unsigned char const * begin, unsigned char const * end, char const * text)
{
    throw Exceptions::InvalidLength(begin, static_cast<UInt64>(end - begin), text, __FILE__, __LINE__);
}

UInt64 readNumber(unsigned char const * bytes, unsigned size)
{
    UInt64 number = 0;
    for (unsigned i = 0; i < size; ++i)
        number = number << 8 | bytes[i];
    return number;
}

UnknownAttribute::Reason reasonOf(TagResolution::Outcome outcome)
{
    switch (outcome)
    {
    case TagResolution::FOUND:
        return UnknownAttribute::LabelNotInDictionary;
    case TagResolution::INVALID_TAG:
        return UnknownAttribute::InvalidTag;
    case TagResolution::STATIC_TAG_UNKNOWN:
        return UnknownAttribute::StaticTagNotInDictionary;
    case TagResolution::COLLISION:
        return UnknownAttribute::LabelCollision;
    default:
        return UnknownAttribute::TagNotInPrimer;
    }
}

Attribute unknown(Types::LocalTag const & tag, UnknownAttribute::Reason reason)
{
    return Attribute(new UnknownAttribute(tag, reason));
}

// The element for a value that has no place in the set; the class of the
// value decides.
Templates::auto_ptr<Element> elementOf(Templates::auto_ptr<Types::SimpleDataType> value, Attribute const & attribute,
                                       MetadataSet & set)
{
    Templates::auto_ptr<Element> element;
    if (SchemaRules::isReference(SchemaRules::identifierOf(value.get())))
        element.reset(new ReferenceElement(References::asReference(std::move(value)), attribute, set));
    else
        element.reset(new SimpleElement(std::move(value), attribute, set));
    return element;
}

template <class ArrayClass, class BatchClass>
Templates::auto_ptr<Element> collectionOf(Templates::auto_ptr<Types::Collection> value, Attribute const & attribute,
                                          MetadataSet & set)
{
    Templates::auto_ptr<Element> element;
    if (SchemaRules::identifierOf(value.get()) == Types::Identifiers::Array)
        element.reset(new ArrayClass(std::move(value), attribute, set));
    else
        element.reset(new BatchClass(std::move(value), attribute, set));
    return element;
}

}

// What a tag stands for in the set.
struct SetLoader::Meaning
{
    // The element of the attribute, where it has a place in the set.
    Element * element;

    // Null when the attribute is unknown.
    MetaElement const * metaElement;

    // Where there is no element, or else null.
    Attribute attribute;
};

void SetLoader::load(KLV::Value & packetValue, unsigned lengthSize)
{
    UInt64 const claimed = packetValue.remaining();
    Templates::vector<unsigned char> bytes;
    Types::appendAvailable(packetValue, bytes);

    unsigned char const * const begin = bytes.data();
    unsigned char const * const end = begin + bytes.size();
    for (unsigned char const * at = begin; static_cast<UInt64>(at - begin) < claimed;)
    {
        auto const left = static_cast<UInt64>(end - at);
        if (left < TAG_SIZE)
            failLength(at, end, "Invalid data size in Value");
        if (left < TAG_SIZE + lengthSize)
            failLength(at, end, "Invalid data size in Value to create an element in the metadataSet.");

        unsigned char const * const content = at + TAG_SIZE + lengthSize;
        UInt64 const length = readNumber(at + TAG_SIZE, lengthSize);
        unsigned char const * const next = content + std::min(length, static_cast<UInt64>(end - content));
        loadTriplet(Types::LocalTag(at), {content, next, length});
        at = next;
    }
}

void SetLoader::loadTriplet(Types::LocalTag const & tag, Content const & content)
{
    // A value cut off at the end of the packet, or one that isn't of its type,
    // is kept as it is.
    bool const cutOff = static_cast<UInt64>(content.end - content.begin) < content.length;
    Meaning const meaning = meaningOf(tag);
    if (meaning.metaElement == nullptr)
        return keep(cutOff ? unknown(tag, UnknownAttribute::InvalidValue) : meaning.attribute, content);

    try
    {
        if (meaning.element != nullptr)
            loadElement(*meaning.element, content);
        else
            loadInvalid(meaning, content);
    }
    catch (Exceptions::InvalidLength const &)
    {
        keep(unknown(tag, UnknownAttribute::InvalidValue), content);
    }
    catch (Exceptions::InvalidValue const &)
    {
        keep(unknown(tag, UnknownAttribute::InvalidValue), content);
    }
    catch (Exceptions::NoFactory const &)
    {
        keep(unknown(tag, UnknownAttribute::InvalidValue), content);
    }
}

void SetLoader::loadElement(Element & element, Content const & content)
{
    SpanSource source(content.begin, content.end);
    KLV::Value value(source, content.length);
    try
    {
        if (content.length == BASIC_UMID_SIZE && element.label() == DMS1::DMS1MetadataULs::extendedClipID())
        {
            unsigned char padded[EXTENDED_UMID_SIZE] = {};
            value.readValue(padded, BASIC_UMID_SIZE);
            SpanSource paddedSource(padded, padded + EXTENDED_UMID_SIZE);
            KLV::Value paddedValue(paddedSource, EXTENDED_UMID_SIZE);
            element.load(paddedValue);
        }
        else
            element.load(value);
    }
    catch (Exceptions::InvalidMetaAttribute const &)
    {
        // An element that can't be loaded stays as it was.
    }
}

void SetLoader::loadInvalid(Meaning const & meaning, Content const & content)
{
    SpanSource source(content.begin, content.end);
    KLV::Value value(source, content.length);
    MetaElement const & metaElement = *meaning.metaElement;
    auto const * const collection = getMetaElement<MetaCollectionElement>(&metaElement);
    if (collection == nullptr)
        return impl_.appendInvalid(
            elementOf(BaseTypeFactory::instance().create(value, metaElement.dataType()), meaning.attribute, set_));

    auto const make = getMetaElement<MetaReferenceHolder>(&metaElement) != nullptr
                          ? &collectionOf<ArrayReferenceElement, BatchReferenceElement>
                          : &collectionOf<ArrayElement, BatchElement>;
    impl_.appendInvalid(
        make(BaseTypeFactory::instance().create(value, metaElement.dataType(), collection->dataSubType()),
             meaning.attribute, set_));
}

void SetLoader::keep(Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> const & attribute,
                     Content const & content)
{
    Templates::auto_ptr<Types::SimpleDataType> value(
        new Types::Unknown(content.begin, static_cast<unsigned int>(content.end - content.begin)));
    impl_.appendInvalid(Templates::auto_ptr<Element>(new SimpleElement(std::move(value), attribute, set_)));
}

SetLoader::Meaning SetLoader::meaningOf(Types::LocalTag const & tag) const
{
    TagResolution const resolution = resolveTag(dictionary_, tag, strict_);
    Meaning meaning = {};
    if (resolution.outcome == TagResolution::FOUND)
        meaning = meaningOf(*resolution.label);
    else if (resolution.outcome == TagResolution::COLLISION && tag == PACKAGES_TAG &&
             set_.findElement(MetadataULs::packages()) != nullptr)
        meaning = meaningOf(MetadataULs::packages());
    else if (resolution.outcome != TagResolution::INVALID_TAG && strict_)
        meaning = meaningWithoutStrictness(tag);

    if (meaning.metaElement == nullptr)
        meaning.attribute = unknown(tag, reasonOf(resolution.outcome));
    return meaning;
}

SetLoader::Meaning SetLoader::meaningWithoutStrictness(Types::LocalTag const & tag) const
{
    TagResolution const resolution = resolveTag(dictionary_, tag, false);
    return resolution.outcome == TagResolution::FOUND ? meaningOf(*resolution.label) : Meaning();
}

SetLoader::Meaning SetLoader::meaningOf(Types::UniversalLabel const & label) const
{
    Element * const element = set_.findElement(label);
    if (element != nullptr)
        return {element, element->metaElement(), Attribute()};

    MetaElement const * const metaElement = std::as_const(*dictionary_.dictionary()).findMetaElement(label);
    return {nullptr, metaElement,
            metaElement != nullptr ? Attribute(new MetaMetadata::MisplacedAttribute(*metaElement)) : Attribute()};
}

}}
