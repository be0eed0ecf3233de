#include "MetadataTree.h"

#include "ElementContent.h"
#include "KeyName.h"
#include "Metadata/Element.h"
#include "Metadata/MetadataKeys.h"
#include "Metadata/PartitionMetadata.h"
#include "SetNames.h"
#include "Text.h"
#include "Types/Array.h"
#include "Types/Batch.h"
#include "Types/StrongReference.h"
#include "Types/Visitors/NullVisitor.h"

#include <fmt/format.h>

namespace Vantry { namespace Application {

namespace {

using Metadata::MetadataSet;

auto const UUID_FORM = Types::StringRepresentationEncodingType::RFC4122;

/// Gathers what strong references name.
class OwnedUUIDs : public Types::Visitors::NullVisitor
{
public:
    using NullVisitor::visit;

    void visit(Types::StrongReference const & reference) override { found.push_back(&reference.uuid()); }
    void visit(Types::Array const & items) override { visitItems(items); }
    void visit(Types::Batch const & items) override { visitItems(items); }

    void visitElement(Metadata::Element const & element)
    {
        if (Types::BaseType const * const content = contentOf(element))
            content->accept(*this);
    }

    std::vector<Types::UUID const *> found;

private:
    void visitItems(Types::Collection const & items)
    {
        for (unsigned int i = 0; i < items.size(); ++i)
            items.at(i).accept(*this);
    }
};

std::vector<Types::UUID const *> ownedBy(MetadataSet const & set)
{
    OwnedUUIDs owned;
    for (MetadataSet::Entry const & entry : set)
        owned.visitElement(*entry.second);
    for (auto invalid = set.invalidBegin(); invalid != set.invalidEnd(); ++invalid)
        owned.visitElement(**invalid);
    return owned.found;
}

}

MetadataTree::MetadataTree(Metadata::PartitionMetadata const & metadata, SetNames const & names) : names_(names)
{
    for (auto const & [key, set] : metadata)
        enter(*set);

    for (auto const & [key, set] : metadata)
        for (Types::UUID const * uuid : ownedBy(*set))
            if (auto const found = sets_.find(*uuid); found != sets_.end())
                owned_.insert(found->second);

    for (MetadataSet const * preface : metadata.find(Metadata::MetadataKeys::preface()))
        walk(*preface);
    outside_ = nodes_.size();

    for (auto const & [key, set] : metadata)
        if (owned_.count(set) == 0)
            walk(*set);
    for (auto const & [key, set] : metadata)
        walk(*set); // what is left are circles
}

std::optional<MetadataTree::Place> MetadataTree::find(Types::UUID const & instanceUID) const
{
    auto const found = sets_.find(instanceUID);
    if (found == sets_.end())
        return std::nullopt;
    return places_.at(found->second);
}

void MetadataTree::enter(MetadataSet const & set)
{
    Types::UUID const * const instanceUID = set.instanceUID();
    if (instanceUID != nullptr && !sets_.emplace(*instanceUID, &set).second)
        warnings_.add(fmt::format("the instance identifier of {} is there twice", nameOf(set)));
}

void MetadataTree::walk(MetadataSet const & root)
{
    if (places_.count(&root) != 0)
        return;

    // A file decides how deep its tree is, so the stack mustn't.
    std::vector<Node> pending{{&root, std::nullopt, 0}};
    while (!pending.empty())
    {
        Node const next = pending.back();
        pending.pop_back();
        if (!places_.emplace(next.set, nodes_.size()).second)
        {
            warnings_.add(fmt::format("{} is owned more than once, or by itself", nameOf(*next.set)));
            continue;
        }

        nodes_.push_back(next);
        std::vector<MetadataSet const *> const children = childrenOf(*next.set);
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            pending.push_back({*child, nodes_.size() - 1, next.depth + 1});
    }
}

std::vector<MetadataSet const *> MetadataTree::childrenOf(MetadataSet const & set)
{
    std::vector<MetadataSet const *> children;
    for (Types::UUID const * uuid : ownedBy(set))
    {
        auto const found = sets_.find(*uuid);
        if (found != sets_.end())
            children.push_back(found->second);
        else
            warnings_.add(fmt::format("{} owns a set that isn't there: {}", nameOf(set), textOf(*uuid, UUID_FORM)));
    }
    return children;
}

std::string MetadataTree::nameOf(MetadataSet const & set) const
{
    fmt::memory_buffer name;
    appendKeyName(name, set.key(), names_);
    Types::UUID const * const instanceUID = set.instanceUID();
    return fmt::to_string(name) + (instanceUID != nullptr ? " " + textOf(*instanceUID, UUID_FORM) : "");
}

}}
