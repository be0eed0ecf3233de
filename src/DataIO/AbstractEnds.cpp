// The classes of this module that have nothing to do but to be destroyed:
// each gets the one home of its virtual table here.

#include "DataIO/BlockFactory.h"
#include "DataIO/ChainSink.h"
#include "DataIO/RandomAccessDataSink.h"
#include "DataIO/RandomAccessDataSource.h"
#include "DataIO/SliceSink.h"
#include "DataIO/SliceSource.h"
#include "DataIO/StreamingDataSource.h"

namespace Vantry { namespace DataIO {

Block::~Block() = default;
BlockFactory::~BlockFactory() = default;

DataSource::~DataSource() = default;
BoundedDataSource::~BoundedDataSource() = default;
RandomAccessible::~RandomAccessible() = default;
RandomAccessDataSource::~RandomAccessDataSource() = default;
StreamingDataSource::~StreamingDataSource() = default;
SliceSource::~SliceSource() = default;

DataSink::~DataSink() = default;
RandomAccessDataSink::~RandomAccessDataSink() = default;
SliceSink::~SliceSink() = default;
ChainSink::~ChainSink() = default;

}}
