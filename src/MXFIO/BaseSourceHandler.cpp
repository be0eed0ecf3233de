#include "MXFIO/BaseSourceHandler.h"

#include "MXFIO/FutureUpdater.h"

#include <utility>

namespace Vantry { namespace MXFIO {

BaseSourceHandler::BaseSourceHandler(Templates::auto_ptr<AbstractPartitionWriter> writer) :
    writer_(std::move(writer)), unitsInPartition_(0), finished_(false)
{
}

BaseSourceHandler::~BaseSourceHandler() = default;

AbstractPartitionWriter::Status BaseSourceHandler::writeData(DataIO::Chain & chain, bool & complete,
                                                             Templates::SharedPtr<FutureUpdater> & updater)
{
    Seconds duration;
    AbstractPartitionWriter::Status const status = writer_->writeData(chain, complete, updater, duration);
    multiplexTime_ += duration;
    secondsInPartition_ += duration;
    ++unitsInPartition_;
    return status;
}

void BaseSourceHandler::finish()
{
    finalizeEssenceMetadata();
    finished_ = true;
}

void BaseSourceHandler::restartPartition()
{
    unitsInPartition_ = 0;
    secondsInPartition_ = 0;
}

bool BaseSourceHandler::partitionIsFull(unsigned int units, Seconds const & seconds) const
{
    return (units != 0 && unitsInPartition_ >= units) || (seconds != 0 && secondsInPartition_ >= seconds);
}

bool BaseSourceHandler::turnIsOver(Seconds const & period) const
{
    return period != 0 && multiplexTime_ >= period;
}

void BaseSourceHandler::beginTurn(Seconds const & secondsPerPartition)
{
    if (secondsPerPartition == 0)
        multiplexTime_ = 0;
    else if (multiplexTime_ != 0)
        multiplexTime_ -= secondsPerPartition;
}

}}
