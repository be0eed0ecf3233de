#include "DataIO/ChainSinkDataAdapter.h"

#include "DataIO/Chain.h"
#include "DataIO/DataSink.h"

namespace Vantry { namespace DataIO {

ChainSinkDataAdapter::ChainSinkDataAdapter(DataSink & sink) : sink_(sink) {}

ChainSinkDataAdapter::~ChainSinkDataAdapter() = default;

void ChainSinkDataAdapter::write(Chain & chain)
{
    for (Slice const & slice : chain)
        sink_.write(slice.begin(), slice.size());
}

}}
