#include "MetaMetadata/MetaCollectionElement.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidMetaElement.h"
#include "MetaMetadata/MetaElementTypes.h"

#include <string>

namespace Vantry { namespace MetaMetadata {

MetaCollectionElement::MetaCollectionElement(Types::UniversalLabel const & label, CollectionSizeLimits const & limits,
                                             Types::Identifiers::Identifier dataType,
                                             Types::Identifiers::Identifier dataSubType) :
    MetaElement(label, dataType), dataSubType_(dataSubType), limits_(limits)
{
    if (!isCollectionType(dataType))
        VANTRY_FAIL(InvalidMetaElement,
                    typeMessage("Tried to create a MetaCollectionElement derived class with dataType: ", dataType));
    if (limits.maximum < limits.minimum)
        VANTRY_FAIL(InvalidMetaElement,
                    ("Tried to create a MetaCollectionElement derived class with invalid limits: [" +
                     std::to_string(limits.minimum) + ";" + std::to_string(limits.maximum) + "]")
                        .c_str());
}

MetaCollectionElement::~MetaCollectionElement() = default;

MetaCollectionElement & MetaCollectionElement::operator=(MetaCollectionElement const & other) = default;

}}
