#pragma once

#include "DataIO/BoundedDataSource.h"
#include "DataIO/RandomAccessible.h"

namespace Vantry { namespace DataIO {

/// A source that can be read from any place.
class VANTRY_EXPORT RandomAccessDataSource : public virtual BoundedDataSource, public virtual RandomAccessible
{
public:
    VANTRY_CLASS_ALLOCATION

    ~RandomAccessDataSource() override;
};

}}
