#include "MXFIO/SourceHandlers.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"

#include <utility>

namespace Vantry { namespace MXFIO {

SourceHandlers::SourceHandlers() :
    withoutStream_(new GenericContainerSourceHandler(Templates::auto_ptr<BasePartitionWriter>(new BasePartitionWriter)))
{
    Templates::SharedPtr<BaseSourceHandler> handler(withoutStream_);
    current_ = handlers_.emplace(0, handler).first;
}

void SourceHandlers::add(unsigned int bodySID, Templates::auto_ptr<BaseSourceHandler> handler)
{
    bool const isNew = handlers_.emplace(bodySID, std::move(handler)).second;
    VANTRY_CHECK_TEXT(isNew, "handlers_.find (bodySID) == handlers_.end ()", InvalidValue,
                      "BodySID value is used already!");
}

Templates::vector<Templates::SharedPtr<BaseSourceHandler>> SourceHandlers::streams() const
{
    Templates::vector<Templates::SharedPtr<BaseSourceHandler>> streams;
    for (auto const & entry : handlers_)
        if (entry.first != 0)
            streams.push_back(entry.second);
    return streams;
}

GenericContainerSourceHandler & SourceHandlers::firstContainer()
{
    for (auto const & entry : handlers_)
        if (entry.second->isEssenceContainer())
            return static_cast<GenericContainerSourceHandler &>(*entry.second);
    return *withoutStream_;
}

void SourceHandlers::toFirst()
{
    current_ = handlers_.begin();
    if (haveStreams())
        ++current_;
}

bool SourceHandlers::toNext()
{
    for (std::size_t i = 0; i < handlers_.size(); ++i)
    {
        if (++current_ == handlers_.end())
            current_ = handlers_.begin();
        if (current_->first != 0 && !current_->second->finished())
            return true;
    }
    return false;
}

void SourceHandlers::remove(unsigned int bodySID)
{
    bool const isCurrent = current_->first == bodySID;
    handlers_.erase(bodySID);
    if (isCurrent)
        toFirst();
}

}}
