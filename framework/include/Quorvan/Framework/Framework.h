#pragma once

#include "Quorvan/Framework/Export.h"

namespace Quorvan { namespace Framework {

/// Services of the process that belong to no other class.
class QUORVAN_EXPORT Framework
{
public:
    Framework() = delete;

    /// 16 bits from the system's entropy. Any thread may call it, and it
    /// doesn't fail.
    static unsigned short randomNumber();
};

}}
