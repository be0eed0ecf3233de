#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Containers.h"

namespace Vantry { namespace MetaMetadata {

/// How badly a set needs an attribute, with the short texts of SMPTE 377M.
class VANTRY_EXPORT AttributeRequiredStatus
{
public:
    VANTRY_CLASS_ALLOCATION

    enum Status : int
    {
        Req = 0,     ///< "Req": always there
        EReq = 1,    ///< "E/req": the encoder must write it, a file is open without
        DReq = 2,    ///< "D/req": the decoder must understand it where it is
        BEffort = 3, ///< "B.Effort": there, though perhaps with a distinguished value; a file is incomplete without
        Opt = 4      ///< "Opt": may be there
    };

    static AttributeRequiredStatus & instance();

    virtual ~AttributeRequiredStatus();

    /// The status of a short text, upper and lower case told apart.
    ///
    /// \throws Exceptions::NotFound for any other text.
    virtual Status statusFromText(unsigned short const * text) const = 0;

    /// \throws Exceptions::NotFound for a number that is no status.
    virtual unsigned short const * textFromStatus(Status status) const = 0;
};

}}
