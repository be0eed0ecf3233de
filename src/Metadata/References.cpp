#include "Metadata/References.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidMetaAttribute.h"
#include "Exceptions/InvalidType.h"
#include "Exceptions/NotFound.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/SchemaRules.h"
#include "Types/StrongReference.h"
#include "Types/WeakReference.h"

namespace Vantry { namespace Metadata { namespace References {

Types::Reference const & asReference(Types::SimpleDataType const & value)
{
    if (!SchemaRules::isReference(SchemaRules::identifierOf(&value)))
        VANTRY_FAIL(InvalidType, "The value is no reference");
    return static_cast<Types::Reference const &>(value);
}

Templates::auto_ptr<Types::Reference> asReference(Templates::auto_ptr<Types::SimpleDataType> value)
{
    if (value)
        asReference(*value);
    return Templates::auto_ptr<Types::Reference>(static_cast<Types::Reference *>(value.release()));
}

Templates::auto_ptr<Types::Reference> referenceTo(MetadataSet const & target, Types::Identifiers::Identifier type)
{
    if (!SchemaRules::isReference(type))
        VANTRY_FAIL(InvalidMetaAttribute,
                    "Trying to set a value to a ReferenceElement that differs from its MetaAttribute information");

    Types::UUID const * const identifier = target.instanceUID();
    if (identifier == nullptr)
        VANTRY_FAIL(NotFound, "The metadata set has no instance identifier to refer to");

    Templates::auto_ptr<Types::Reference> reference;
    if (type == Types::Identifiers::StrongReference)
        reference.reset(new Types::StrongReference(*identifier));
    else
        reference.reset(new Types::WeakReference(*identifier));
    return reference;
}

}}}
