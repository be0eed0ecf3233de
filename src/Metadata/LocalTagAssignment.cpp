#include "Metadata/LocalTagAssignment.h"

#include "MetaMetadata/MetaMetadataSet.h"
#include "MetaMetadata/UnknownAttribute.h"
#include "Metadata/Element.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionDictionary.h"
#include "Platform/Allocator.h"

#include <functional>
#include <set>

namespace Vantry { namespace Metadata {

namespace {

// Elements that the dictionary doesn't know are written with the tag they
// came with.
void reserveTags(MetadataSet const & set, PartitionDictionary & dictionary)
{
    for (auto place = set.invalidBegin(); place != set.invalidEnd(); ++place)
    {
        auto const attribute = (*place)->metaAttribute().dynamicCast<MetaMetadata::UnknownAttribute const>();
        if (attribute)
            dictionary.reserve(attribute->localTag());
    }
}

// Whether the set came as a copy from where the schema gives it more.
bool hasMoreThanItsSchema(MetadataSet const & set)
{
    MetaMetadata::MetaMetadataSet const * const schema = set.metaMetadataSet();
    return set.size() != (schema != nullptr ? schema->metaAttributeCount() : 0);
}

void assignValid(MetadataSet const & set, PartitionDictionary & dictionary)
{
    for (MetadataSet::Entry const & entry : set)
        dictionary.findOrGenerate(entry.first);
}

void assignInvalid(MetadataSet const & set, PartitionDictionary & dictionary)
{
    for (auto place = set.invalidBegin(); place != set.invalidEnd(); ++place)
        if ((*place)->label() != MetadataULs::null())
            dictionary.findOrGenerate((*place)->label());
}

}

void assignLocalTags(Templates::vector<MetadataSet *> const & sets, PartitionDictionary & dictionary)
{
    for (MetadataSet const * set : sets)
        reserveTags(*set, dictionary);

    // Sets of one schema mostly have the same valid elements.
    using Schema = MetaMetadata::MetaMetadataSet const *;
    std::set<Schema, std::less<>, Platform::Allocator<Schema>> done;
    for (MetadataSet const * set : sets)
    {
        if (done.insert(set->metaMetadataSet()).second || hasMoreThanItsSchema(*set))
            assignValid(*set, dictionary);
        assignInvalid(*set, dictionary);
    }
}

}}
