#pragma once

#include "MXFIO/PartitionProvider.h"

namespace Vantry { namespace MXFIO {

class Reader;
class Reader2;

/// Walks over the partitions for each question.
class VANTRY_EXPORT BasicPartitionProvider : public PartitionProvider
{
public:
    /// \param reader          lent; a Reader2 walks back from the end
    /// \param fromLastLoaded  the Reader2 begins with the last partition that
    ///                        it knows
    BasicPartitionProvider(Reader & reader, unsigned int bodySID, bool fromLastLoaded);
    ~BasicPartitionProvider() override;

    Partition * partitionContaining(UInt64 bodyOffset, Int64 editUnit) override;

private:
    Reader & reader_;
    Reader2 * reader2_;
    unsigned int bodySID_;
    bool fromLastLoaded_;
};

}}
