#include "GenericContainer/Demultiplexer.h"

#include "GenericContainer/Demultiplexer_impl.h"
#include "GenericContainer/ItemOutput.h"
#include "MXFIO/ContentStorageReader.h"

namespace Vantry { namespace GenericContainer {

Demultiplexer::Demultiplexer(MXFIO::ContentStorageReader & container, UInt64 mostCached,
                             CacheLimitHandling limitHandling) :
    impl_(new Demultiplexer_impl(container, mostCached, limitHandling))
{
}

Demultiplexer::~Demultiplexer() = default;

Templates::SharedPtr<ItemOutput> Demultiplexer::output(unsigned int trackNumber)
{
    return Templates::SharedPtr<ItemOutput>(new ItemOutput(impl_, trackNumber, impl_->mutex()));
}

Templates::vector<Templates::SharedPtr<ItemOutput>> Demultiplexer::outputs()
{
    Templates::vector<Templates::SharedPtr<ItemOutput>> all;
    for (unsigned int const trackNumber : impl_->container().elements())
        all.push_back(output(trackNumber));
    return all;
}

}}
