#include "Metadata/PartitionMetadata.h"

#include "DataIO/DataSink.h"
#include "Exceptions/Check.h"
#include "Exceptions/NotFound.h"
#include "KLV/Packet.h"
#include "MetaMetadata/Dictionary.h"
#include "Metadata/DarkMetadataSet.h"
#include "Metadata/DarkParsedGroup.h"
#include "Metadata/ElementValue.h"
#include "Metadata/HashedUUIDs.h"
#include "Metadata/ListenerTable.h"
#include "Metadata/Listeners/DefaultMetadataIndexListener.h"
#include "Metadata/LocalTagAssignment.h"
#include "Metadata/MetadataKeys.h"
#include "Metadata/MetadataSetFactory.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/ParentIndex.h"
#include "Metadata/PartitionDictionary.h"
#include "Metadata/SetOrder.h"
#include "Metadata/SetRegister.h"
#include "Metadata/SimpleElement.h"
#include "Metadata/StrongTree.h"
#include "Metadata/Structural/PackageOrder.h"
#include "Packs/PrimerPack.h"
#include "Types/Collection.h"
#include "Types/Factories/UID.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace Vantry { namespace Metadata {

namespace {

ListenerTable::Index defaultIndex()
{
    return ListenerTable::Index(new Listeners::DefaultMetadataIndexListener);
}

Templates::wstring aboutKey(char const * lead, KLV::Key const & key, char const * end)
{
    return Platform::stringToWstring(lead) + key.toString(Types::StringRepresentationEncodingType::DOTTED_BYTES) +
           Platform::stringToWstring(end);
}

void setInstanceUID(MetadataSet & set)
{
    auto * const element = dynamic_cast<SimpleElement *>(set.findElement(MetadataULs::instanceUID()));
    if (element == nullptr)
        VANTRY_FAIL(NotFound, aboutKey("InstanceUID not found in Metadata Set with key ", set.key(),
                                       " Check Metadata Set builder."));
    auto const version = Types::Factories::UID::TIME_SNAP_VERSION_1;
    element->set(
        Templates::auto_ptr<Types::SimpleDataType>(new Types::UUID(Types::Factories::UID::generateUUID(version))),
        false);
}

bool isNamed(MetadataSet const & set, Types::UUID const & instanceUID)
{
    Types::UUID const * const own = set.instanceUID();
    return own != nullptr && *own == instanceUID;
}

void replayElement(PartitionMetadataListener & listener, MetadataSet & set, Element & element)
{
    Types::BaseType const * const value = valueOf(element);
    if (value != nullptr)
        listener.addedElement(set, element.metaElement(), element, *value);
}

void replaySet(PartitionMetadataListener & listener, MetadataSet & set)
{
    listener.createdMetadataSet(&set);
    for (MetadataSet::Entry const & entry : set)
        replayElement(listener, set, *entry.second);
    for (auto place = set.invalidBegin(); place != set.invalidEnd(); ++place)
        replayElement(listener, set, **place);
}

void replaySets(PartitionMetadataListener & listener, PartitionMetadata::MetadataSets const & sets)
{
    for (auto const & entry : sets)
        replaySet(listener, *entry.second);
}

template <class Parents>
unsigned int appendParents(ParentIndex::Range const & range, Parents & parents)
{
    std::size_t const before = parents.size();
    for (auto place = range.first; place != range.second; ++place)
        parents.push_back(place->second);
    return static_cast<unsigned int>(parents.size() - before);
}

}

class PartitionMetadata::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Impl(Templates::auto_ptr<PartitionDictionary> theDictionary) :
        dictionary(std::move(theDictionary)), listeners(defaultIndex())
    {
    }

    Impl(Impl const &) = delete;
    Impl & operator=(Impl const &) = delete;

    // The sets still tell of their values while they go, to no listener.
    ~Impl()
    {
        for (DarkMetadataSet * set : darkSets)
            delete set;
        listeners.clear();
    }

    KLV::Key askForKey(KLV::Key key) const
    {
        listeners.tell([&](PartitionMetadataListener & listener) { listener.metadataSetKey(key); });
        return key;
    }

    MetaMetadata::MetaMetadataSet const * schemaOf(KLV::Key const & key) const
    {
        MetaMetadata::Dictionary const & schema = *constDictionary().dictionary();
        return schema.find(key);
    }

    MetadataSets const & sets() const { return setRegister.sets(); }
    PartitionDictionary const & constDictionary() const { return *dictionary; }

    MetadataSet * enter(Templates::auto_ptr<MetadataSet> set);
    void remove(MetadataSet & set);
    MetadataSet * findByInstanceUID(Types::UUID const & instanceUID) const;
    ParentIndex::Range parentsOf(MetadataSet const & child);

    // The time in which an element tells of a change. The change itself comes
    // after that, so whatever was computed is old at its end.
    class Changing
    {
    public:
        Changing(Impl & impl, Element const & element) : impl_(impl), change_(impl.parents, element) {}
        Changing(Changing const &) = delete;
        Changing & operator=(Changing const &) = delete;
        ~Changing() { impl_.changed(); }

    private:
        Impl & impl_;
        ParentIndex::Change change_;
    };

    // Passes on what an element tells.
    template <class Call>
    void pass(Element const & element, Call const & call)
    {
        Changing const changing(*this, element);
        listeners.tell(call);
    }

    void changed() { tagsDue = sizesDue = true; }
    void computeSizes();
    UInt64 darkSize() const;

    void writeHead(DataIO::DataSink & sink, PartitionMetadata & metadata, bool withPrimer) const;
    void writeSets(DataIO::DataSink & sink, SetOrder::Sets const & order, bool withDark) const;

    template <class Walk>
    void walk(Walk operation, Templates::vector<Element *> & elements) const
    {
        for (MetadataSet const * set : setRegister.row())
            (set->*operation)(elements);
    }

    Templates::auto_ptr<PartitionDictionary> const dictionary;
    ListenerTable listeners;
    ParentIndex parents;
    DarkMetadataSets darkSets;

    // Without primer pack and dark sets.
    UInt64 sizeOfValid = 0;
    UInt64 sizeOfAll = 0;
    bool tagsDue = false;
    bool sizesDue = false;

    // Goes first of all, while the rest can still hear of it.
    SetRegister setRegister;
};

MetadataSet * PartitionMetadata::Impl::enter(Templates::auto_ptr<MetadataSet> set)
{
    MetadataSet * const entered = set.get();
    setRegister.add(std::move(set));
    changed();

    ParentIndex::Change const change(parents);
    listeners.tell([&](PartitionMetadataListener & listener) { listener.createdMetadataSet(entered); });
    return entered;
}

void PartitionMetadata::Impl::remove(MetadataSet & set)
{
    ParentIndex::Change const change(parents);
    listeners.tell([&](PartitionMetadataListener & listener) { listener.removedMetadataSet(&set); });

    // A listener may have removed it already.
    Templates::auto_ptr<MetadataSet> const removed = setRegister.remove(set);
    changed();
}

MetadataSet * PartitionMetadata::Impl::findByInstanceUID(Types::UUID const & instanceUID) const
{
    if (!listeners.indexListens() || !listeners.index().isIndexed(MetadataULs::instanceUID()))
    {
        auto const found = std::find_if(sets().begin(), sets().end(),
                                        [&](auto const & entry) { return isNamed(*entry.second, instanceUID); });
        return found != sets().end() ? found->second : nullptr;
    }

    // The index also knows sets that have this owner but aren't here.
    MetadataSet * first = nullptr;
    for (MetadataSet * set : listeners.index().find(MetadataULs::instanceUID(), instanceUID))
        if (setRegister.has(*set) && isNamed(*set, instanceUID) &&
            (first == nullptr || setRegister.isAhead(*set, *first)))
            first = set;
    return first;
}

ParentIndex::Range PartitionMetadata::Impl::parentsOf(MetadataSet const & child)
{
    Types::UUID const * const instanceUID = child.instanceUID();
    return instanceUID != nullptr ? parents.find(*instanceUID, setRegister) : ParentIndex::Range();
}

void PartitionMetadata::Impl::computeSizes()
{
    sizeOfValid = sizeOfAll = 0;
    for (MetadataSet const * set : setRegister.row())
    {
        UInt64 const size = set->serializedSize(false);
        sizeOfValid += size;
        sizeOfAll += set->invalidSize() == 0 ? size : set->serializedSize(true);
    }
    sizesDue = false;
}

UInt64 PartitionMetadata::Impl::darkSize() const
{
    UInt64 size = 0;
    for (DarkMetadataSet const * set : darkSets)
        size += set->serializedSize();
    return size;
}

void PartitionMetadata::Impl::writeHead(DataIO::DataSink & sink, PartitionMetadata & metadata, bool withPrimer) const
{
    SetOrder::checkInstanceUIDs(setRegister.row());
    if (!withPrimer)
        return;
    metadata.generateLocalTags();
    constDictionary().primer().serialize(sink);
}

void PartitionMetadata::Impl::writeSets(DataIO::DataSink & sink, SetOrder::Sets const & order, bool withDark) const
{
    for (MetadataSet const * set : order)
        set->serialize(sink, *dictionary, withDark);
    if (!withDark)
        return;
    for (DarkMetadataSet const * set : darkSets)
        set->serialize(sink);
}

PartitionMetadata::PartitionMetadata(Templates::auto_ptr<PartitionDictionary> partitionDictionary) :
    impl_(new Impl(std::move(partitionDictionary)))
{
}

PartitionMetadata::~PartitionMetadata()
{
    delete impl_;
}

MetadataSet * PartitionMetadata::load(KLV::Packet & packet)
{
    KLV::Key const key = impl_->askForKey(packet.key());
    packet.key(key);

    MetaMetadata::MetaMetadataSet const * const schema = impl_->schemaOf(key);
    if (schema == nullptr && key.localTagFieldLength() != sizeof(UInt16))
    {
        addDarkMetadataSet(Templates::auto_ptr<DarkMetadataSet>(new DarkMetadataSet(packet)));
        return nullptr;
    }

    Templates::auto_ptr<MetadataSet> set(schema != nullptr ? MetadataSetFactory::instance().create(key, schema, this)
                                                           : new DarkParsedGroup(key, this));
    set->load(packet, *impl_->dictionary, true);
    return impl_->enter(std::move(set));
}

MetadataSet * PartitionMetadata::createMetadataSet(KLV::Key const & key)
{
    KLV::Key const finalKey = impl_->askForKey(key);
    MetaMetadata::MetaMetadataSet const * const schema = impl_->schemaOf(finalKey);
    if (schema == nullptr)
        VANTRY_FAIL(NotFound, aboutKey("A MetaMetadataSet with Key ", finalKey, " was not found in the Dictionary."));

    Templates::auto_ptr<MetadataSet> set(MetadataSetFactory::instance().create(finalKey, schema, this));
    setInstanceUID(*set);
    return impl_->enter(std::move(set));
}

void PartitionMetadata::addDarkMetadataSet(Templates::auto_ptr<DarkMetadataSet> set)
{
    impl_->darkSets.push_back(set.get());
    set.release();
}

bool PartitionMetadata::removeMetadataSet(Types::UUID const & instanceUID)
{
    MetadataSet * const set = impl_->findByInstanceUID(instanceUID);
    if (set == nullptr)
        return false;
    impl_->remove(*set);
    return true;
}

Templates::vector<MetadataSet *> PartitionMetadata::find(KLV::Key const & key) const
{
    Templates::vector<MetadataSet *> found;
    auto const range = impl_->sets().equal_range(key);
    for (auto place = range.first; place != range.second; ++place)
        found.push_back(place->second);
    return found;
}

Templates::vector<MetadataSet *> PartitionMetadata::find(Types::UniversalLabel const & label,
                                                         Types::SimpleDataType const & value) const
{
    return impl_->listeners.index().find(label, value);
}

unsigned int PartitionMetadata::parentSets(MetadataSet const * child, Templates::vector<MetadataSet *> & parents) const
{
    return appendParents(impl_->parentsOf(*child), parents);
}

unsigned int PartitionMetadata::parentSets(MetadataSet const * child,
                                           Templates::vector<MetadataSet const *> & parents) const
{
    return appendParents(impl_->parentsOf(*child), parents);
}

PartitionMetadata::const_iterator PartitionMetadata::begin() const noexcept
{
    return impl_->sets().begin();
}

PartitionMetadata::const_iterator PartitionMetadata::end() const noexcept
{
    return impl_->sets().end();
}

unsigned int PartitionMetadata::size() const noexcept
{
    return static_cast<unsigned int>(impl_->sets().size());
}

PartitionMetadata::const_dark_iterator PartitionMetadata::darkBegin() const noexcept
{
    return impl_->darkSets.begin();
}

PartitionMetadata::const_dark_iterator PartitionMetadata::darkEnd() const noexcept
{
    return impl_->darkSets.end();
}

PartitionDictionary & PartitionMetadata::partitionDictionary()
{
    return *impl_->dictionary;
}

PartitionDictionary const & PartitionMetadata::partitionDictionary() const
{
    return *impl_->dictionary;
}

void PartitionMetadata::addMetadataListener(Templates::SharedPtr<PartitionMetadataListener> listener, bool replay)
{
    impl_->listeners.add(listener);
    if (replay)
        replaySets(*listener, impl_->sets());
}

void PartitionMetadata::removeMetadataListener(Templates::SharedPtr<PartitionMetadataListener> listener)
{
    impl_->listeners.remove(listener);
}

void PartitionMetadata::setMetadataIndexListener(Templates::SharedPtr<Listeners::MetadataIndexListener> listener)
{
    ListenerTable::Index const index = listener ? listener : defaultIndex();
    replaySets(*index, impl_->sets());
    impl_->listeners.replaceIndex(index);
}

void PartitionMetadata::generateLocalTags()
{
    if (impl_->tagsDue)
    {
        assignLocalTags(impl_->setRegister.row(), *impl_->dictionary);
        impl_->tagsDue = false;
    }
    if (impl_->sizesDue)
        impl_->computeSizes();
}

UInt64 PartitionMetadata::serializedSize(bool withDark, bool withPrimer)
{
    if (withPrimer)
        generateLocalTags();
    if (impl_->sizesDue)
        impl_->computeSizes();

    UInt64 const sets = withDark ? impl_->sizeOfAll + impl_->darkSize() : impl_->sizeOfValid;
    return withPrimer ? impl_->constDictionary().primer().serializedSize() + sets : sets;
}

unsigned int PartitionMetadata::calculateSerializationOrder(Templates::vector<MetadataSet const *> & order,
                                                            bool withInvalid, bool depthFirst) const
{
    auto const preface = impl_->sets().find(MetadataKeys::preface());
    if (preface == impl_->sets().end())
        VANTRY_FAIL(NotFound, "Didn't find MetadataSet with specified key.");

    order.push_back(preface->second);
    HashedUUIDs visited(impl_->sets().size());
    appendStrongTree(*this, *preface->second, order, visited, withInvalid, depthFirst);

    std::size_t const treeSize = order.size();
    SetOrder::appendOthers(impl_->setRegister.row(), order);
    return static_cast<unsigned int>(order.size() - treeSize);
}

void PartitionMetadata::serializeForwardReferences(DataIO::DataSink & sink, bool withDark, bool depthFirst,
                                                   bool withPrimer)
{
    impl_->writeHead(sink, *this, withPrimer);
    SetOrder::Sets order;
    calculateSerializationOrder(order, withDark, depthFirst);
    impl_->writeSets(sink, order, withDark);
}

void PartitionMetadata::serialize(DataIO::DataSink & sink, bool withDark, SerializationOrder order, bool withPrimer)
{
    if (order == NormalizedForward || order == NormalizedReversed || order == NormalizedReversedExperimentalFirst)
        Structural::orderPackagesAndTracks(*this);

    switch (order)
    {
    case PrefaceFirst:
        impl_->writeHead(sink, *this, withPrimer);
        impl_->writeSets(sink, SetOrder::prefaceFirst(impl_->setRegister.row()), withDark);
        break;
    case ForwardDepthFirst:
    case NormalizedForward:
        serializeForwardReferences(sink, withDark, true, withPrimer);
        break;
    case ForwardBySiblings:
        serializeForwardReferences(sink, withDark, false, withPrimer);
        break;
    case NormalizedReversed:
    case NormalizedReversedExperimentalFirst:
        SetOrder::Sets forward;
        calculateSerializationOrder(forward, withDark, true);
        impl_->writeHead(sink, *this, withPrimer);
        impl_->writeSets(sink, SetOrder::reversed(forward, order == NormalizedReversedExperimentalFirst), withDark);
        break;
    }
}

void PartitionMetadata::openElements(Templates::vector<Element *> & elements) const
{
    impl_->walk(&MetadataSet::openElements, elements);
}

void PartitionMetadata::incompleteElements(Templates::vector<Element *> & elements) const
{
    impl_->walk(&MetadataSet::incompleteElements, elements);
}

void PartitionMetadata::possiblyOpenElements(Templates::vector<Element *> & elements) const
{
    impl_->walk(&MetadataSet::possiblyOpenElements, elements);
}

void PartitionMetadata::possiblyIncompleteElements(Templates::vector<Element *> & elements) const
{
    impl_->walk(&MetadataSet::possiblyIncompleteElements, elements);
}

void PartitionMetadata::possiblyForbiddenElements(Templates::vector<Element *> & elements) const
{
    impl_->walk(&MetadataSet::possiblyForbiddenElements, elements);
}

void PartitionMetadata::getSemanticsValidationElements(Templates::vector<Element *> & elements) const
{
    impl_->walk(&MetadataSet::getSemanticsValidationElements, elements);
}

void PartitionMetadata::addedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                     Element & element, Types::BaseType const & newValue)
{
    impl_->pass(element, [&](PartitionMetadataListener & listener)
                { listener.addedElement(set, metaElement, element, newValue); });
}

void PartitionMetadata::updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                       Element & element, Types::Collection const & oldValue,
                                       Types::Collection const & newValue)
{
    impl_->pass(element, [&](PartitionMetadataListener & listener)
                { listener.updatedElement(set, metaElement, element, oldValue, newValue); });
}

void PartitionMetadata::updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                       Element & element, Types::SimpleDataType const & oldValue,
                                       Types::SimpleDataType const & newValue)
{
    impl_->pass(element, [&](PartitionMetadataListener & listener)
                { listener.updatedElement(set, metaElement, element, oldValue, newValue); });
}

void PartitionMetadata::updatedElementCollection(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                                 Element & element, Types::Collection const & collection,
                                                 unsigned int index, Types::SimpleDataType const * item)
{
    impl_->pass(element, [&](PartitionMetadataListener & listener)
                { listener.updatedElementCollection(set, metaElement, element, collection, index, item); });
}

void PartitionMetadata::removedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                       Element & element, Types::BaseType const & oldValue)
{
    Impl::Changing const changing(*impl_, element);
    impl_->listeners.tellAll([&](PartitionMetadataListener & listener)
                             { listener.removedElement(set, metaElement, element, oldValue); });
}

void PartitionMetadata::metadataSetCloned(MetadataSet const &, MetadataSet & to, bool)
{
    impl_->enter(Templates::auto_ptr<MetadataSet>(&to));
}

}}
