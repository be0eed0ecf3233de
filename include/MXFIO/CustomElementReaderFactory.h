#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Templates/auto_ptr.h"

namespace Vantry { namespace MXFIO {

class ContentStorageReader;
class ElementReader;

/// Makes element readers of an application's own.
class VANTRY_EXPORT CustomElementReaderFactory
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~CustomElementReaderFactory();

    /// \param trackNumber    bytes 12 to 15 of the element's key
    /// \param trackRate      edit units of the track per second
    /// \param containerRate  edit units of the container per second
    /// \param reader         lent; it outlives the element reader
    /// \param startPosition  where the clip starts, in edit units of the track
    /// \param duration       its edit units; -1 when they aren't known
    /// \return null to leave this track to the library
    virtual Templates::auto_ptr<ElementReader> elementReader(unsigned int trackNumber,
                                                             Templates::Rational<Int64> const & trackRate,
                                                             Templates::Rational<Int64> const & containerRate,
                                                             ContentStorageReader & reader, Int64 startPosition,
                                                             Int64 duration) = 0;
};

}}
