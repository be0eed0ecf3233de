#include "Metadata/StrongRefVisitor.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionMetadata.h"
#include "Types/StrongReference.h"

namespace Vantry { namespace Metadata {

void StrongRefVisitor::visit(Types::StrongReference const & reference)
{
    Templates::vector<MetadataSet *> const found = metadata_.find(MetadataULs::instanceUID(), reference);
    if (found.empty())
        return;
    if (!visited_.insert(reference.uuid()).second)
        VANTRY_FAIL(InvalidFormat,
                    Platform::stringToWstring("Circular reference for this instanceUID: ") +
                        reference.uuid().toString(Types::StringRepresentationEncodingType::DOTTED_BYTES));
    children_.push_back(found.front());
}

}}
