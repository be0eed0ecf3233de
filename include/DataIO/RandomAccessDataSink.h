#pragma once

#include "DataIO/DataSink.h"
#include "DataIO/RandomAccessible.h"

namespace Vantry { namespace DataIO {

/// A sink that can be written at any place.
class VANTRY_EXPORT RandomAccessDataSink : public virtual DataSink, public virtual RandomAccessible
{
public:
    VANTRY_CLASS_ALLOCATION

    ~RandomAccessDataSink() override;
};

}}
