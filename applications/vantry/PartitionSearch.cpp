#include "PartitionSearch.h"

#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/BaseException.h"
#include "Exceptions/IOError.h"
#include "KLV/Reader.h"
#include "PacketFaults.h"

namespace Vantry { namespace Application {

namespace {

/// Takes one step of the search: the pack if the next key is that of one, or
/// else null with the file at the second byte of that key.
std::unique_ptr<Packs::PartitionPack> tryNextKey(DataIO::RandomAccessDataSource & file, KLV::Reader & reader)
{
    UInt64 skipped = 0;
    KLV::Key const key = reader.peekNextKey(skipped, LONGEST_RUN_IN - file.absoluteOffset());
    if (Packs::isPartitionPack(key))
        return std::make_unique<Packs::PartitionPack>(*reader.nextKLV(skipped, 0));

    file.seek(file.absoluteOffset() - key.size() + 1);
    return nullptr;
}

}

std::unique_ptr<Packs::PartitionPack> findFirstPartition(DataIO::RandomAccessDataSource & file)
{
    KLV::Reader reader(file);
    try
    {
        while (file.absoluteOffset() <= LONGEST_RUN_IN)
            if (std::unique_ptr<Packs::PartitionPack> pack = tryNextKey(file, reader))
                return pack;
    }
    catch (Exceptions::IOError const &)
    {
        throw;
    }
    catch (Exceptions::BaseException const &)
    {
        // There is no key, or its packet is none of a partition.
    }
    return nullptr;
}

}}
