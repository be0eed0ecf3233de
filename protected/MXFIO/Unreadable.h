#pragma once

#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidKey.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidPartitionStatus.h"
#include "Exceptions/KeyNotFound.h"
#include "Exceptions/NotEnoughData.h"

namespace Vantry { namespace MXFIO {

/// Runs an operation that may find something unreadable. Then it has found
/// nothing: false, null.
template <class Operation>
auto nothingIfUnreadable(Operation const & operation) -> decltype(operation())
{
    try
    {
        return operation();
    }
    catch (Exceptions::NotEnoughData const &)
    {
    }
    catch (Exceptions::KeyNotFound const &)
    {
    }
    catch (Exceptions::InvalidFormat const &)
    {
    }
    catch (Exceptions::InvalidKey const &)
    {
    }
    catch (Exceptions::InvalidLength const &)
    {
    }
    catch (Exceptions::InvalidPartitionStatus const &)
    {
    }
    return decltype(operation())();
}

}}
