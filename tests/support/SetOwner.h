#pragma once

#include "Exceptions/OperationNotAllowed.h"
#include "Metadata/Element.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/MetadataSetOwner.h"
#include "Metadata/SimpleElement.h"
#include "Types/Collection.h"
#include "Types/SimpleDataType.h"
#include "Types/UUID.h"
#include "support/Schema.h"

#include <map>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

namespace Vantry { namespace Tests {

/// Keeps sets, and writes down what it hears of them: what happened, the last
/// byte of the attribute's label, and whether the element has a value still.
class SetOwner : public Metadata::MetadataSetOwner
{
public:
    explicit SetOwner(Schema const & schema) : schema_(schema), dictionary_(schema.partitionDictionary()) {}

    /// Takes a set over. It is found by the instance identifier it has when
    /// `find` is called for the first time.
    Metadata::MetadataSet & add(Metadata::MetadataSet * set)
    {
        sets.emplace_back(set);
        return *set;
    }

    /// A new node; with an identifier that ends in `identifier`, unless that
    /// is 0.
    Metadata::MetadataSet & node(unsigned char identifier = 0)
    {
        auto & set = add(new Metadata::MetadataSet(nodeKey(), schema_.set(nodeKey()), this));
        if (identifier != 0)
            identify(set, uuid(identifier));
        return set;
    }

    static void identify(Metadata::MetadataSet & set, Types::UUID const & identifier)
    {
        dynamic_cast<Metadata::SimpleElement &>(set.find(Metadata::MetadataULs::instanceUID()))
            .set(Templates::auto_ptr<Types::SimpleDataType>(new Types::UUID(identifier)), false);
    }

    void addedElement(Metadata::MetadataSet &, MetaMetadata::MetaElement const *, Metadata::Element & element,
                      Types::BaseType const &) override
    {
        note("added", element);
    }

    void updatedElement(Metadata::MetadataSet &, MetaMetadata::MetaElement const *, Metadata::Element & element,
                        Types::Collection const &, Types::Collection const &) override
    {
        note("updated all of", element);
    }

    void updatedElement(Metadata::MetadataSet &, MetaMetadata::MetaElement const *, Metadata::Element & element,
                        Types::SimpleDataType const &, Types::SimpleDataType const &) override
    {
        note("updated", element);
    }

    void updatedElementCollection(Metadata::MetadataSet &, MetaMetadata::MetaElement const *,
                                  Metadata::Element & element, Types::Collection const & collection, unsigned int index,
                                  Types::SimpleDataType const * item) override
    {
        note((item != nullptr ? "new " : "no ") + std::to_string(index) + " among " +
                 std::to_string(collection.size()) + " of",
             element);
    }

    void removedElement(Metadata::MetadataSet &, MetaMetadata::MetaElement const *, Metadata::Element & element,
                        Types::BaseType const &) override
    {
        note("removed", element);
    }

    void metadataSetCloned(Metadata::MetadataSet const &, Metadata::MetadataSet & to, bool) override
    {
        log.emplace_back("cloned");
        add(&to);
    }

    Templates::vector<Metadata::MetadataSet *> find(Types::UniversalLabel const &,
                                                    Types::SimpleDataType const & value) const override
    {
        for (; indexed_ < sets.size() && sets[indexed_]->instanceUID() != nullptr; ++indexed_)
            index_[*sets[indexed_]->instanceUID()] = sets[indexed_].get();
        auto const found = index_.find(Types::UUID(value.rawBuffer()));
        return Templates::vector<Metadata::MetadataSet *>(found != index_.end() ? 1 : 0,
                                                          found != index_.end() ? found->second : nullptr);
    }

    Metadata::PartitionDictionary & partitionDictionary() override { return *dictionary_; }
    Metadata::PartitionDictionary const & partitionDictionary() const override { return *dictionary_; }

    /// Whether it throws at all that it hears.
    bool refuses = false;

    std::vector<std::string> log;
    std::vector<std::unique_ptr<Metadata::MetadataSet>> sets;

private:
    void note(std::string const & what, Metadata::Element const & element)
    {
        static char const DIGITS[] = "0123456789ABCDEF";
        unsigned char const last = element.label().rawBuffer()[15];
        log.push_back(what + ' ' + DIGITS[last >> 4] + DIGITS[last & 15] + (element.empty() ? " (empty)" : ""));
        if (refuses)
            throw Exceptions::OperationNotAllowed("refused", __FILE__, __LINE__);
    }

    Schema const & schema_;
    std::unique_ptr<Metadata::PartitionDictionary> dictionary_;
    mutable std::map<Types::UUID, Metadata::MetadataSet *> index_;
    mutable std::size_t indexed_ = 0;
};

/// The class of an element or a set.
template <class Object>
std::type_info const & classOf(Object const & object)
{
    return typeid(object);
}

/// The element of an attribute as `Class`.
template <class Class>
Class & elementOf(Metadata::MetadataSet & set, Types::UniversalLabel const & label)
{
    return dynamic_cast<Class &>(set.find(label));
}

template <class Class>
Class & elementOf(Metadata::MetadataSet & set, SchemaAttribute attribute)
{
    return elementOf<Class>(set, labelOf(attribute));
}

}}
