#pragma once

#include "ContainerUnwrap.h"
#include "Input.h"
#include "PacketWalk.h"

#include <string>

namespace Vantry {
namespace Packs {
class PartitionPack;
}

namespace Application {

/// Goes over a file once and hands the essence to the containers.
class UnwrapWalk : public PacketListener
{
public:
    using Containers = std::vector<std::unique_ptr<ContainerUnwrap>>;

    UnwrapWalk(BlockSource & source, Containers const & containers) : source_(source), containers_(containers) {}

    /// Goes on until all containers have what is wanted.
    ///
    /// \param start      where to begin
    /// \param container  the one whose essence is there; null for none
    /// \throws Exceptions::IOError, Failure when the file can't be read or an
    ///         output can't be written.
    void run(UInt64 start, ContainerUnwrap * container);

    /// What is wrong with the file; empty when nothing is.
    std::string const & fault() const { return fault_; }

private:
    void value(KLV::Packet & packet) override;
    void packet(KLV::Packet const & packet, UInt64 bytesThere) override;
    void gap(UInt64 offset, UInt64 size, bool unreadableLength) override;
    bool isSatisfied() const override;
    bool ignoresFill() const override { return true; }

    void enter(KLV::Packet & packet);
    void enter(Packs::PartitionPack const & pack, UInt64 bodyStart);
    void note(std::string const & fault);

    BlockSource & source_;
    Containers const & containers_;
    ContainerUnwrap * container_ = nullptr; // of the partition
    UInt64 bodyStart_ = 0;                  // of the partition
    bool hasFooter_ = false;
    std::string fault_;
};

}
}
