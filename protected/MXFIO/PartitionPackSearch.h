#pragma once

#include "KLV/Packet.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace DataIO {
class DataSource;
}
namespace KLV {
class Reader;
}

namespace MXFIO {

/// A walk over packets, from where the source is up to a partition pack.
class PartitionPackSearch
{
public:
    /// \param reader      lent
    /// \param limit       bytes that may lie ahead of each key; from 2^63 on
    ///                    there is no search
    /// \param fixedLimit  false to lower it by the length of each packet
    ///                    passed
    PartitionPackSearch(KLV::Reader & reader, UInt64 limit, bool fixedLimit);

    /// The packet of the partition pack; null at the end of the source, and
    /// where the limit is used up.
    ///
    /// \throws Exceptions::NotEnoughData, Exceptions::KeyNotFound,
    ///         Exceptions::InvalidFormat as KLV::Reader.
    Templates::auto_ptr<KLV::Packet> run();

    /// What is left of the limit.
    UInt64 limit() const { return limit_; }

    /// Bytes ahead of the partition pack, or ahead of where the walk ended.
    UInt64 bytesConsumed() const { return bytesConsumed_; }

    /// Whether essence was passed.
    bool essenceSeen() const { return essenceSeen_; }

private:
    void pass(KLV::Packet & packet);

    KLV::Reader & reader_;
    UInt64 limit_;
    bool const fixedLimit_;
    bool exhausted_;
    UInt64 bytesConsumed_ = 0;
    bool essenceSeen_ = false;
};

}
}
