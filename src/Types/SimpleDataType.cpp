#include "Types/SimpleDataType.h"

#include "DataIO/DataSink.h"

namespace Vantry { namespace Types {

BaseType::~BaseType() = default;

SimpleDataType::~SimpleDataType() = default;

void SimpleDataType::serialize(DataIO::DataSink & sink) const
{
    sink.write(rawBuffer(), serializedSize());
}

}}
