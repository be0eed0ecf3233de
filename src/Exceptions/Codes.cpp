#include "Exceptions/AlreadySet.h"
#include "Exceptions/BadAlloc.h"
#include "Exceptions/BrokenLink.h"
#include "Exceptions/IOError.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidChange.h"
#include "Exceptions/InvalidElement.h"
#include "Exceptions/InvalidElementLength.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidID.h"
#include "Exceptions/InvalidIndexSegment.h"
#include "Exceptions/InvalidKey.h"
#include "Exceptions/InvalidLabel.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidLocalTag.h"
#include "Exceptions/InvalidMetaAttribute.h"
#include "Exceptions/InvalidMetaElement.h"
#include "Exceptions/InvalidMetadataSet.h"
#include "Exceptions/InvalidPartitionKind.h"
#include "Exceptions/InvalidPartitionStatus.h"
#include "Exceptions/InvalidPosition.h"
#include "Exceptions/InvalidState.h"
#include "Exceptions/InvalidStructure.h"
#include "Exceptions/InvalidType.h"
#include "Exceptions/InvalidValue.h"
#include "Exceptions/KeyNotFound.h"
#include "Exceptions/LocalTagNotFound.h"
#include "Exceptions/MetadataSetReferenceNotAllowed.h"
#include "Exceptions/NoFactory.h"
#include "Exceptions/NotEnoughData.h"
#include "Exceptions/NotFound.h"
#include "Exceptions/NotFoundInPrimer.h"
#include "Exceptions/NotImplemented.h"
#include "Exceptions/OSError.h"
#include "Exceptions/OperationNotAllowed.h"
#include "Exceptions/UniversalLabelCollision.h"

// A code that was once given to a class stays with it; the gaps in the row
// stay unused.
#define VANTRY_ERROR_CODE(Class, code) \
    Int32 Class::errorCode() const     \
    {                                  \
        return code;                   \
    }

namespace Vantry { namespace Exceptions {

VANTRY_ERROR_CODE(BadAlloc, 2)
VANTRY_ERROR_CODE(BrokenLink, 3)
VANTRY_ERROR_CODE(IndexOutOfBounds, 4)
VANTRY_ERROR_CODE(InvalidChange, 5)
VANTRY_ERROR_CODE(InvalidElement, 6)
VANTRY_ERROR_CODE(InvalidElementLength, 7)
VANTRY_ERROR_CODE(InvalidFormat, 8)
VANTRY_ERROR_CODE(InvalidID, 9)
VANTRY_ERROR_CODE(InvalidIndexSegment, 10)
VANTRY_ERROR_CODE(InvalidPosition, 12)
VANTRY_ERROR_CODE(InvalidLocalTag, 13)
VANTRY_ERROR_CODE(InvalidKey, 14)
VANTRY_ERROR_CODE(InvalidMetaAttribute, 15)
VANTRY_ERROR_CODE(InvalidValue, 16)
VANTRY_ERROR_CODE(AlreadySet, 17)
VANTRY_ERROR_CODE(InvalidMetadataSet, 18)
VANTRY_ERROR_CODE(InvalidMetaElement, 19)
VANTRY_ERROR_CODE(InvalidPartitionKind, 21)
VANTRY_ERROR_CODE(InvalidPartitionStatus, 22)
VANTRY_ERROR_CODE(InvalidStructure, 23)
VANTRY_ERROR_CODE(KeyNotFound, 24)
VANTRY_ERROR_CODE(IOError, 26)
VANTRY_ERROR_CODE(LocalTagNotFound, 27)
VANTRY_ERROR_CODE(MetadataSetReferenceNotAllowed, 28)
VANTRY_ERROR_CODE(NoFactory, 29)
VANTRY_ERROR_CODE(NotEnoughData, 30)
VANTRY_ERROR_CODE(NotFound, 31)
VANTRY_ERROR_CODE(NotFoundInPrimer, 32)
VANTRY_ERROR_CODE(UniversalLabelCollision, 34)
VANTRY_ERROR_CODE(InvalidLabel, 35)
VANTRY_ERROR_CODE(NotImplemented, 37)
VANTRY_ERROR_CODE(InvalidLength, 39)
VANTRY_ERROR_CODE(InvalidType, 40)
VANTRY_ERROR_CODE(OSError, 41)
VANTRY_ERROR_CODE(OperationNotAllowed, 42)
VANTRY_ERROR_CODE(InvalidState, 43)

}}
