#pragma once

#include "MXFIO/BaseSourceHandler.h"
#include "MXFIO/GenericContainerSourceHandler.h"
#include "Templates/Containers.h"

namespace Vantry { namespace MXFIO {

/// The streams of a file by body SID, and which of them is written. Key 0 is
/// always there, for partitions without a stream.
class SourceHandlers
{
public:
    using Map = Templates::map<unsigned int, Templates::SharedPtr<BaseSourceHandler>>;

    SourceHandlers();
    SourceHandlers(SourceHandlers const &) = delete;
    SourceHandlers & operator=(SourceHandlers const &) = delete;

    /// \throws Exceptions::InvalidValue when the SID is there already.
    void add(unsigned int bodySID, Templates::auto_ptr<BaseSourceHandler> handler);

    /// All, key 0 first, then the streams.
    Map const & all() const { return handlers_; }
    Templates::vector<Templates::SharedPtr<BaseSourceHandler>> streams() const;

    /// Whether there is any stream.
    bool haveStreams() const { return handlers_.size() > 1; }

    GenericContainerSourceHandler & withoutStream() { return *withoutStream_; }

    /// The first essence container; key 0 when there is none.
    GenericContainerSourceHandler & firstContainer();

    BaseSourceHandler & current() { return *current_->second; }

    /// Goes to the first stream, or to key 0.
    void toFirst();

    /// Goes to the next stream that isn't finished, after the last to the
    /// first; that may be the current one. False when all are finished.
    bool toNext();

    /// Removes a stream. If it is the current one, the first is that.
    void remove(unsigned int bodySID);

private:
    Map handlers_;
    GenericContainerSourceHandler * withoutStream_;
    Map::iterator current_;
};

}}
