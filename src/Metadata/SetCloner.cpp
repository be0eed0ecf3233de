#include "Metadata/SetCloner.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "MetaMetadata/Dictionary.h"
#include "MetaMetadata/MetaCollectionElement.h"
#include "Metadata/ArrayElement.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/MetadataSetFactory.h"
#include "Metadata/MetadataSetOwner.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionDictionary.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/References.h"
#include "Metadata/SchemaRules.h"
#include "Metadata/SimpleElement.h"
#include "Metadata/Visitors/ElementVisitor.h"
#include "Types/Array.h"
#include "Types/Batch.h"
#include "Types/Factories/UID.h"
#include "Types/StrongReference.h"

#include <utility>

namespace Vantry { namespace Metadata {

namespace {

// In sound metadata each set has one owner. A file whose sets are owned
// twice, by sets that are owned twice, asks for more copies than fit into any
// memory.
unsigned int const MOST_REPEATS = 4096;

// An element as one with references, or neither.
class GetReferences final : public Visitors::ElementVisitor
{
public:
    explicit GetReferences(Element const & element) { element.accept(*this); }

    void visit(BatchReferenceElement const & element) override { several = &element; }
    void visit(ArrayReferenceElement const & element) override { several = &element; }
    void visit(ReferenceElement const & element) override { single = &element; }
    void visit(BatchElement const &) override {}
    void visit(ArrayElement const &) override {}
    void visit(SimpleElement const &) override {}

    ReferenceElement const * single = nullptr;
    CollectionReferenceElement const * several = nullptr;
};

bool isStrong(Types::BaseType const * value)
{
    return SchemaRules::identifierOf(value) == Types::Identifiers::StrongReference;
}

// The schema tells also of a collection without items.
bool ownsItems(CollectionReferenceElement const & element)
{
    Types::Collection const * const items = element.value();
    if (items == nullptr)
        return false;
    auto const * const rules = SchemaRules::collectionRules(element);
    if (rules != nullptr)
        return rules->dataSubType() == Types::Identifiers::StrongReference;
    return items->size() != 0 && isStrong(&items->at(0));
}

std::unique_ptr<Types::Collection> emptyLike(Types::Collection const & collection)
{
    int const size = Types::Identifiers::typeSize(Types::Identifiers::StrongReference);
    if (SchemaRules::identifierOf(&collection) == Types::Identifiers::Array)
        return std::make_unique<Types::Array>(size);
    return std::make_unique<Types::Batch>(size);
}

// The copy of an element that refers to no set.
Templates::auto_ptr<Element> copyOf(Element & element, MetadataSet & to)
{
    if (element.label() != MetadataULs::instanceUID())
        return element.clone(to);

    Templates::auto_ptr<Types::SimpleDataType> identifier(
        new Types::UUID(Types::Factories::UID::generateUUID(Types::Factories::UID::TIME_SNAP_VERSION_1)));
    return Templates::auto_ptr<Element>(new SimpleElement(std::move(identifier), element.metaAttribute(), to));
}

}

MetadataSet * SetCloner::clone(MetadataSet const & set)
{
    begin(set);
    MetadataSet * const result = frames_.back().to;

    // Where nobody else keeps the copy, a failure must not lose it.
    Templates::auto_ptr<MetadataSet> guard(owner_ == nullptr ? result : nullptr);
    while (!frames_.empty())
        copyElements();
    guard.release();
    return result;
}

void SetCloner::begin(MetadataSet const & set)
{
    checkIsTree(set);

    bool const stays = owner_ == nullptr || owner_ == set.owner();
    MetaMetadata::MetaMetadataSet const * const schema =
        stays ? set.metaMetadataSet() : std::as_const(*owner_->partitionDictionary().dictionary()).find(set.key());
    Templates::auto_ptr<MetadataSet> copy(MetadataSetFactory::instance().create(set.key(), schema, owner_));
    frames_.push_back({&set, copy.get(), 0, 0, nullptr});

    MetadataSet & to = *copy.release();
    if (owner_ != nullptr)
        owner_->metadataSetCloned(set, to, deep_);
}

void SetCloner::end()
{
    met_[frames_.back().from] = false;
    finished_ = frames_.back().to;
    frames_.pop_back();
}

void SetCloner::checkIsTree(MetadataSet const & set)
{
    auto const met = met_.emplace(&set, true);
    if (met.second)
        return;
    bool const circular = met.first->second;
    if (circular || ++repeats_ > MOST_REPEATS)
        VANTRY_FAIL(InvalidFormat,
                    Platform::stringToWstring("Circular reference for this instanceUID: ") +
                        set.instanceUID()->toString(Types::StringRepresentationEncodingType::DOTTED_BYTES));
    met.first->second = true;
}

// Goes on with the last set on the stack, until it is copied or one of the
// sets that it owns has to be copied first.
void SetCloner::copyElements()
{
    for (;; ++frames_.back().element)
    {
        Frame const & frame = frames_.back();
        MetadataSet::Impl const & from = *frame.from->impl_;
        std::size_t const validCount = from.elements.size();
        if (frame.element >= validCount + from.invalid.size())
            return end();

        Element & element = frame.element < validCount ? *from.elements[frame.element].second
                                                       : *from.invalid[frame.element - validCount];
        GetReferences const references(element);
        if (references.single != nullptr)
        {
            if (deep_ && isStrong(references.single->value()) && !copyOwnedSet(*references.single))
                return;
        }
        else if (references.several != nullptr)
        {
            if (deep_ && ownsItems(*references.several) && !copyOwnedSets(*references.several))
                return;
        }
        else
            put(copyOf(element, *frame.to));
    }
}

// Returns false when the set has to be copied first.
bool SetCloner::copyOwnedSet(ReferenceElement const & element)
{
    if (finished_ == nullptr)
    {
        MetadataSet const * const target = find(*element.value());
        if (target == nullptr)
            return true;
        begin(*target);
        return false;
    }

    put(Templates::auto_ptr<Element>(
        new ReferenceElement(referenceToFinished(), element.metaAttribute(), *frames_.back().to)));
    return true;
}

// Returns false when one of the sets has to be copied first.
bool SetCloner::copyOwnedSets(CollectionReferenceElement const & element)
{
    Types::Collection const & items = *element.value();
    Frame & frame = frames_.back();
    if (!frame.references)
        frame.references = emptyLike(items);
    if (finished_ != nullptr)
        frame.references->append(referenceToFinished());

    while (frame.item < items.size())
    {
        Types::SimpleDataType const & item = items.at(frame.item++);
        MetadataSet const * const target = isStrong(&item) ? find(item) : nullptr;
        if (target != nullptr)
        {
            begin(*target);
            return false;
        }
    }

    frame.item = 0;
    Templates::auto_ptr<Types::Collection> references(frame.references.release());
    Templates::auto_ptr<Element> copy;
    if (SchemaRules::identifierOf(references.get()) == Types::Identifiers::Array)
        copy.reset(new ArrayReferenceElement(std::move(references), element.metaAttribute(), *frame.to));
    else
        copy.reset(new BatchReferenceElement(std::move(references), element.metaAttribute(), *frame.to));
    put(std::move(copy));
    return true;
}

Templates::auto_ptr<Types::Reference> SetCloner::referenceToFinished()
{
    MetadataSet const & finished = *finished_;
    finished_ = nullptr;
    return References::referenceTo(finished, Types::Identifiers::StrongReference);
}

void SetCloner::put(Templates::auto_ptr<Element> copy)
{
    Frame const & frame = frames_.back();
    bool const valid = frame.element < frame.from->impl_->elements.size();
    MetadataSet::Impl & to = *frame.to->impl_;
    if (valid)
        to.put(std::move(copy));
    else
        to.appendInvalid(std::move(copy));
}

// The set stands where the one that refers to it does; failing that, perhaps
// already where the copies go.
MetadataSet const * SetCloner::find(Types::SimpleDataType const & reference) const
{
    for (MetadataSetOwner * owner : {frames_.back().from->owner(), owner_})
    {
        if (owner == nullptr)
            continue;
        Templates::vector<MetadataSet *> const found = owner->find(MetadataULs::instanceUID(), reference);
        if (!found.empty())
            return found.front();
    }
    return nullptr;
}

}}
