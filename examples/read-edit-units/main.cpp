// Lists what an MXF file plays, edit unit by edit unit, all tracks in step;
// from any edit unit on.

#include <Vantry/DataIO/File/FileDataSource.h>
#include <Vantry/Exceptions/BaseException.h>
#include <Vantry/KLV/Packet.h>
#include <Vantry/MXFIO/ElementEditUnit.h>
#include <Vantry/MXFIO/EssenceReader.h>
#include <Vantry/MXFIO/Partition.h>
#include <Vantry/MXFIO/Reader2.h>
#include <Vantry/Metadata/PartitionMetadata.h>
#include <Vantry/Metadata/Structural/ContentStorage.h>
#include <Vantry/Metadata/Structural/MaterialPackage.h>
#include <Vantry/Metadata/Structural/Preface.h>
#include <Vantry/Metadata/Structural/PrefaceHelpers.h>
#include <Vantry/Metadata/Structural/TimelineTrack.h>
#include <Vantry/Platform/Text.h>
#include <Vantry/Schema/Dictionaries.h>
#include <Vantry/Types/Rational.h>

#include <cstdio>
#include <cstdlib>

using namespace Vantry;
using namespace Vantry::Metadata::Structural;

namespace {

using Time = Templates::Rational<Int64>;

Templates::SharedPtr<Metadata::PartitionMetadata> finalMetadata(MXFIO::Reader2 & reader)
{
    if (MXFIO::Partition * const partition = reader.firstPartitionWithFinalMetadata())
        return partition->metadata();

    std::fprintf(stderr, "the file has no final metadata\n");
    std::exit(1);
}

GenericPackage & materialPackage(Preface const & preface)
{
    ContentStorage const * const storage = preface.contentStorage();
    for (unsigned int i = 0; storage != nullptr && i < storage->packagesCount(); ++i)
        if (dynamic_cast<MaterialPackage *>(storage->package(i)) != nullptr)
            return *storage->package(i);

    std::fprintf(stderr, "the file has no material package\n");
    std::exit(1);
}

double seconds(Time const & time)
{
    return static_cast<double>(time.numerator()) / static_cast<double>(time.denominator());
}

void print(MXFIO::ElementEditUnit const & unit, Time const & position)
{
    std::printf("%10.3f  track %u  %10llu bytes%s\n", seconds(position), unit.trackID,
                static_cast<unsigned long long>(unit.payloadBytes()),
                (unit.flags & 0x80) != 0 ? "" : "  (no random access)");
}

void play(MXFIO::EssenceReader & essence, unsigned long long count)
{
    UInt64 const MAX_BYTES_TO_SKIP = 4096;

    MXFIO::ElementEditUnit unit;
    for (Time position = essence.position(); count > 0; --count, position = essence.position())
    {
        if (!essence.nextElementEditUnit(MAX_BYTES_TO_SKIP, unit))
            break;
        print(unit, position);
    }
}

// Goes to an edit unit of the first track.
bool goTo(MXFIO::EssenceReader & essence, long long editUnit)
{
    Types::Rational const & rate = *essence.essenceTracks().front()->editRate();
    return essence.seek(Time(editUnit) * Time(rate.denominator(), rate.numerator()));
}

void readEditUnits(char const * path, long long first, unsigned long long count)
{
    int const BUFFER_SIZE = 65536;
    UInt64 const PARTITION_SEARCH_LIMIT = 65536;
    DataIO::File::FileDataSource file(Platform::stringToWstring(path).c_str(), BUFFER_SIZE);
    MXFIO::Reader2 reader(file, Schema::builtInDictionary(), PARTITION_SEARCH_LIMIT);
    auto const metadata = finalMetadata(reader);

    Preface const & preface = findPreface(*metadata);
    bool const LOAD_RIP = true;
    bool const CLIPS_IN_PIECES = true;
    MXFIO::EssenceReader essence(reader, preface, materialPackage(preface), LOAD_RIP, CLIPS_IN_PIECES, {});
    std::printf("%.3f seconds, %zu tracks\n", seconds(essence.duration()), essence.essenceTracks().size());

    if (first > 0 && !goTo(essence, first))
        std::printf("not all tracks have edit unit %lld\n", first);
    play(essence, count);
}

}

int main(int argc, char ** argv)
{
    if (argc < 2 || argc > 4)
    {
        std::fprintf(stderr, "usage: read-edit-units FILE [FIRST [COUNT]]\n");
        return 2;
    }

    try
    {
        readEditUnits(argv[1], argc > 2 ? std::atoll(argv[2]) : 0,
                      argc > 3 ? std::strtoull(argv[3], nullptr, 10) : ~0ULL);
        return 0;
    }
    catch (Exceptions::BaseException const & failure)
    {
        std::fprintf(stderr, "%s\n", Platform::wstringToString(failure.what()).c_str());
        return 1;
    }
}
