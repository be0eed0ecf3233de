#include "Metadata/Element.h"

#include "DataIO/DataSink.h"
#include "Exceptions/InvalidElementLength.h"
#include "MetaMetadata/AbstractMetaAttributeVisitor.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/MetaElement.h"
#include "MetaMetadata/MisplacedAttribute.h"
#include "MetaMetadata/UnknownAttribute.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionDictionary.h"
#include "Platform/BigEndian.h"
#include "Templates/SafeCast.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace Metadata {

namespace {

using MetaMetadata::AbstractMetaAttributeVisitor;
using MetaMetadata::MetaAttribute;
using MetaMetadata::MetaElement;
using MetaMetadata::MisplacedAttribute;
using MetaMetadata::UnknownAttribute;

unsigned const TAG_SIZE = 2;
unsigned const LARGEST_LENGTH_SIZE = 4;

// Where an attribute belongs, as far as it is known.
class FindPlace final : public AbstractMetaAttributeVisitor
{
public:
    void visit(UnknownAttribute const &) override {}
    void visit(MisplacedAttribute const & attribute) override { metaElement = &attribute.metaElement(); }

    void visit(MetaAttribute const & attribute) override
    {
        metaElement = &attribute.metaElement();
        place = &attribute;
    }

    MetaElement const * metaElement = nullptr;
    MetaAttribute const * place = nullptr;
};

// The tag under which an attribute is written.
class FindTag final : public AbstractMetaAttributeVisitor
{
public:
    explicit FindTag(PartitionDictionary const & dictionary) : dictionary_(dictionary) {}

    void visit(UnknownAttribute const & attribute) override { take(attribute.localTag()); }
    void visit(MisplacedAttribute const & attribute) override { take(attribute.metaElement()); }
    void visit(MetaAttribute const & attribute) override { take(attribute.metaElement()); }

    unsigned char tag[TAG_SIZE] = {};

private:
    void take(MetaElement const & metaElement) { take(dictionary_.find(metaElement.universalLabel())); }
    void take(Types::LocalTag const & localTag) { std::copy_n(localTag.rawBuffer(), TAG_SIZE, tag); }

    PartitionDictionary const & dictionary_;
};

template <class Field>
unsigned codeLength(UInt64 length, unsigned char * destination)
{
    Platform::writeBigEndian<Field>(Templates::SafeCast<Field, Exceptions::InvalidElementLength>(length), destination);
    return sizeof(Field);
}

// Returns the bytes that the length takes; none when there is no field of
// that size.
unsigned codeLength(UInt64 length, int fieldLength, unsigned char * destination)
{
    switch (fieldLength)
    {
    case 1:
        return codeLength<UInt8>(length, destination);
    case 2:
        return codeLength<UInt16>(length, destination);
    case 4:
        return codeLength<UInt32>(length, destination);
    default:
        return 0;
    }
}

}

Element::Element(Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute, MetadataSet & set) :
    attribute_(std::move(attribute)), metaElement_(nullptr), placeInSchema_(nullptr), set_(set)
{
    FindPlace visitor;
    if (attribute_)
        attribute_->accept(visitor);
    metaElement_ = visitor.metaElement;
    placeInSchema_ = visitor.place;
}

Element::~Element() = default;

Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> Element::metaAttribute() const
{
    return attribute_;
}

MetadataSet & Element::metadataSet() const
{
    return set_;
}

void Element::serialize(DataIO::DataSink & sink, PartitionDictionary const & dictionary, int lengthFieldLength) const
{
    if (empty())
        return;

    FindTag visitor(dictionary);
    if (attribute_)
        attribute_->accept(visitor);

    unsigned char head[TAG_SIZE + LARGEST_LENGTH_SIZE];
    std::copy_n(visitor.tag, TAG_SIZE, head);
    sink.write(head, TAG_SIZE + codeLength(totalLength(), lengthFieldLength, head + TAG_SIZE));
    serializeValue(sink);
}

Types::UniversalLabel const & Element::label() const noexcept
{
    return metaElement_ != nullptr ? metaElement_->universalLabel() : MetadataULs::null();
}

}}
