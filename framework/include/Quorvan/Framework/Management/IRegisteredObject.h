#pragma once

#include "Quorvan/Framework/Export.h"

namespace Quorvan { namespace Framework { namespace Management {

/// An object that all modules of the process share under a name.
class QUORVAN_EXPORT IRegisteredObject
{
public:
    virtual ~IRegisteredObject() = 0;
};

}}}
