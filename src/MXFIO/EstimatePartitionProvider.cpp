#include "MXFIO/EstimatePartitionProvider.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "MXFIO/PartitionUtils.h"
#include "MXFIO/RIPEntry.h"
#include "Packs/PartitionPack.h"
#include "Templates/auto_ptr.h"

#include <functional>
#include <set>

namespace Vantry { namespace MXFIO {

class EstimatePartitionProvider::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    bool isSeen(Partition * partition) const { return seen_.count(partition) != 0; }

    void see(Partition * partition, UInt64 length)
    {
        if (seen_.insert(partition).second)
            totalBodySize_ += length;
    }

    UInt64 meanBodySize() const { return seen_.empty() ? 0 : totalBodySize_ / seen_.size(); }

private:
    std::set<Partition *, std::less<>, Platform::Allocator<Partition *>> seen_;
    UInt64 totalBodySize_ = 0;
};

EstimatePartitionProvider::EstimatePartitionProvider(Reader2 & reader, unsigned int bodySID) :
    BaseRandomPartitionProvider(reader, bodySID), impl_(nullptr)
{
    UInt64 const count = partitionOffsets().size();
    VANTRY_CHECK_TEXT(count != 0, "partitionOffsets_.size () > 1", InvalidFormat,
                      "No partition for this bodySID was found in RIP.");

    // The last one may be short.
    Partition * partition = partitionOfEntry(reader, partitionOffsets()[count > 1 ? count - 2 : 0]);
    UInt64 length = bodyLength(reader, partition, bodySID);
    while (count > 1 && length == 0 && partition != nullptr)
    {
        partition = reader.previousPartition(partition, bodySID);
        length = bodyLength(reader, partition, bodySID);
    }

    Templates::auto_ptr<Impl> impl(new Impl);
    if (partition != nullptr)
        impl->see(partition, length);
    impl_ = impl.release();
}

EstimatePartitionProvider::~EstimatePartitionProvider()
{
    delete impl_;
}

UInt64 EstimatePartitionProvider::firstTry(UInt64 bodyOffset, Int64)
{
    UInt64 const mean = impl_->meanBodySize();
    return mean != 0 ? bodyOffset / mean : 0;
}

void EstimatePartitionProvider::learned(Partition * partition)
{
    if (partition == nullptr || impl_->isSeen(partition) || partition->partitionPack().bodySID() != bodySID())
        return;

    impl_->see(partition, bodyLength(reader(), partition, bodySID()));
}

}}
