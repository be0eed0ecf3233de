#pragma once

#include "MXFIO/IndexTableProviderBase.h"

namespace Vantry { namespace MXFIO {

class Partition;
class Reader;

/// Reads the index partitions in the order of the file, no farther than is
/// asked for and each once.
class VANTRY_EXPORT IndexTableParseOnRequestProvider : public IndexTableProviderBase
{
public:
    /// \param reader  lent; it outlives the provider
    IndexTableParseOnRequestProvider(Templates::SharedPtr<IndexTableCache> cache, Reader & reader,
                                     unsigned int indexSID);
    ~IndexTableParseOnRequestProvider() override;

protected:
    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> fetch(Int64 editUnit) override;

private:
    Partition * nextIndexPartition();

    Reader & reader_;
    unsigned int indexSID_;
    Partition * last_;
    bool isExhausted_;
};

}}
