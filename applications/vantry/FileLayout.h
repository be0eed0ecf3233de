#pragma once

#include "MXFIO/Reader2.h"
#include "Packs/RandomIndexPack.h"

#include <cstddef>
#include <map>
#include <vector>

namespace Vantry { namespace Application {

class Warnings;

bool isFooter(MXFIO::Partition const & partition);

/// The partitions of a file and its random index pack, as they are found there.
///
/// The random index pack is believed as far as each of its entries leads to a
/// partition and these name each other. Without one, the way goes back from
/// the footer. If that is lost too, or leads astray, all packets from the
/// last known partition on are passed over. So a sound file takes a few reads
/// and any other at most a walk over its packets.
class FileLayout
{
public:
    /// \param file      lent, as the source of all partitions
    /// \param warnings  takes up what the search meets
    /// \throws Exceptions::IOError when the medium fails.
    FileLayout(DataIO::RandomAccessDataSource & file, Warnings & warnings);

    DataIO::RandomAccessDataSource & file() const { return file_; }
    UInt64 size() const { return size_; }
    UInt64 runIn() const { return reader_.runInSize(); }

    /// In file order; none when the file has no header partition.
    std::vector<MXFIO::Partition *> const & partitions() const { return partitions_; }

    /// Which of the partitions have essence of a stream, in file order.
    std::vector<std::size_t> const & partitionsOf(unsigned int bodySID) const;

    /// Where that which belongs to a partition ends: at the next one, at the
    /// random index pack or at the end of the file.
    UInt64 end(std::size_t partition) const;

    /// Whether the file ends with what the last partition has.
    bool endsOpen() const { return ripOffset_ == size_; }

    /// Null when there is none.
    Packs::RandomIndexPack const * randomIndexPack() const { return rip_.get(); }

private:
    class PacketNotes;

    void findRIP();
    bool takeAllOfRIP();
    bool takeBackFromLast();
    void takeForward(Warnings & warnings);
    void lookBehindFooter(Warnings & warnings);
    void walkFrom(MXFIO::Partition const & partition, Warnings & warnings);
    MXFIO::Partition * partitionAt(UInt64 offset);
    void sortOut();

    DataIO::RandomAccessDataSource & file_;
    UInt64 size_;
    MXFIO::Reader2 reader_;
    Templates::SharedPtr<Packs::RandomIndexPack const> rip_;
    UInt64 ripOffset_;
    std::vector<MXFIO::Partition *> partitions_;
    std::map<unsigned int, std::vector<std::size_t>> partitionsOfStreams_;
};

}}
