#pragma once

#include "Exceptions/AlreadySet.h"
#include "Exceptions/BadAlloc.h"
#include "Exceptions/BaseException.h"
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
#include "Platform/Text.h"

#include <gtest/gtest.h>

/// Expects that the statement throws exactly this class of Vantry::Exceptions
/// with exactly this message.
#define EXPECT_FAILURE(Class, text, statement)                                                                       \
    try                                                                                                              \
    {                                                                                                                \
        static_cast<void>(statement);                                                                                \
        ADD_FAILURE() << "nothing was thrown, expected " #Class ": " << (text);                                      \
    }                                                                                                                \
    catch (::Vantry::Exceptions::Class const & failure)                                                              \
    {                                                                                                                \
        EXPECT_STREQ(::Vantry::Platform::wstringToString(failure.message()).c_str(), text);                          \
    }                                                                                                                \
    catch (::Vantry::Exceptions::BaseException const & failure)                                                      \
    {                                                                                                                \
        ADD_FAILURE() << "expected " #Class ", got " << ::Vantry::Platform::wstringToString(failure.what()).c_str(); \
    }                                                                                                                \
    static_assert(true, "a semicolon follows")
