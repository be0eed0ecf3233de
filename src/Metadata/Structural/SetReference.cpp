#include "Metadata/Structural/SetReference.h"

#include "Exceptions/NotFound.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/ReferenceElement.h"

namespace Vantry { namespace Metadata { namespace Structural {

void setReferencedMetadataSet(MetadataSet * set, Types::UniversalLabel const & label, MetadataSet const * target)
{
    try
    {
        dynamic_cast<ReferenceElement &>(set->find(label)).set(target);
    }
    catch (Exceptions::NotFound const &)
    {
    }
}

}}}
