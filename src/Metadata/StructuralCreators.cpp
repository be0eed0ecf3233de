#include "Metadata/StructuralCreators.h"

#include "Metadata/MetadataSetFactory.h"
#include "Templates/Containers.h"

namespace Vantry { namespace Metadata {

namespace {

struct StructuralCreator
{
    KLV::Key key;
    MetadataSetFactory::Creator creator;
};

// The sets with a class of their own.
Templates::vector<StructuralCreator> structuralCreators()
{
    return {};
}

}

void registerStructuralCreators(MetadataSetFactory & factory)
{
    for (StructuralCreator const & entry : structuralCreators())
        factory.registerMetadataSet(entry.key, entry.creator);
}

}}
