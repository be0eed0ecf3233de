#include "Metadata/StrongRefVisitor.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionMetadata.h"

namespace Vantry { namespace Metadata {

MetadataSet const * findReferenced(PartitionMetadata const & metadata, Types::StrongReference const & reference)
{
    Templates::vector<MetadataSet *> const found = metadata.find(MetadataULs::instanceUID(), reference);
    return found.empty() ? nullptr : found.front();
}

void failMetAgain(Types::StrongReference const & reference)
{
    VANTRY_FAIL(InvalidFormat, Platform::stringToWstring("Circular reference for this instanceUID: ") +
                                   reference.uuid().toString(Types::StringRepresentationEncodingType::DOTTED_BYTES));
}

}}
