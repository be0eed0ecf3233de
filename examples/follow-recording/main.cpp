// Reads an MXF file while it is being recorded: gives each edit unit as soon
// as it is there, until the footer comes or nothing more does.

#include <Vantry/Exceptions/BaseException.h>
#include <Vantry/Growing/FileSource.h>
#include <Vantry/KLV/Packet.h>
#include <Vantry/MXFIO/ElementEditUnit.h>
#include <Vantry/MXFIO/EssenceReader.h>
#include <Vantry/MXFIO/Partition.h>
#include <Vantry/MXFIO/Reader2.h>
#include <Vantry/Metadata/PartitionMetadata.h>
#include <Vantry/Metadata/Structural/ContentStorage.h>
#include <Vantry/Metadata/Structural/EssenceContainerData.h>
#include <Vantry/Metadata/Structural/GenericPackage.h>
#include <Vantry/Metadata/Structural/Preface.h>
#include <Vantry/Metadata/Structural/PrefaceHelpers.h>
#include <Vantry/Platform/Text.h>
#include <Vantry/Schema/Dictionaries.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

using namespace Vantry;
using namespace Vantry::Metadata::Structural;

namespace {

// A recording that has just begun may have none yet.
Templates::SharedPtr<Metadata::PartitionMetadata> headerMetadata(MXFIO::Reader2 & reader)
{
    if (MXFIO::Partition * const header = reader.headerPartition())
        return header->metadata();

    std::fprintf(stderr, "there is no header partition\n");
    std::exit(1);
}

// The package of the essence that is recorded.
GenericPackage & filePackage(Preface const & preface)
{
    ContentStorage const * const storage = preface.contentStorage();
    bool const hasContainer = storage != nullptr && storage->essenceContainerDataCount() > 0;
    GenericPackage * const package = hasContainer ? storage->essenceContainerData(0)->linkedPackage() : nullptr;
    if (package == nullptr)
    {
        std::fprintf(stderr, "the file has no essence of its own\n");
        std::exit(1);
    }
    return *package;
}

// Reads all that is there by now, and returns how many edit units.
unsigned long long takeWhatIsThere(MXFIO::EssenceReader & essence)
{
    UInt64 const MAX_BYTES_TO_SKIP = 4096;

    MXFIO::ElementEditUnit unit;
    unsigned long long units = 0;
    while (essence.nextElementEditUnit(MAX_BYTES_TO_SKIP, unit))
        ++units;
    return units;
}

void follow(Growing::FileSource & file, MXFIO::Reader2 & reader, MXFIO::EssenceReader & essence, int mostIdleRounds)
{
    unsigned long long units = 0;
    for (int idleRounds = 0; idleRounds <= mostIdleRounds;)
    {
        unsigned long long const more = takeWhatIsThere(essence);
        units += more;
        idleRounds = more > 0 ? 0 : idleRounds + 1;
        if (more > 0)
            std::printf("%llu edit units\n", units);
        if (more == 0 && reader.footerPartition() != nullptr)
            break;

        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        file.refresh();
        essence.refreshSource();
    }
    std::printf("%llu edit units in all\n", units);
}

void followRecording(char const * path, int mostIdleRounds)
{
    UInt64 const PARTITION_SEARCH_LIMIT = 65536;
    Growing::FileSource file(Platform::stringToWstring(path).c_str());
    MXFIO::Reader2 reader(file, Schema::builtInDictionary(), PARTITION_SEARCH_LIMIT);
    auto const metadata = headerMetadata(reader);

    Preface const & preface = findPreface(*metadata);
    bool const LOAD_RIP = false;
    bool const CLIPS_IN_PIECES = false;
    MXFIO::EssenceReader essence(reader, preface, filePackage(preface), LOAD_RIP, CLIPS_IN_PIECES, {});
    essence.indexTableHandlingMode(MXFIO::INDEX_TABLE_IGNORED);
    follow(file, reader, essence, mostIdleRounds);
}

}

int main(int argc, char ** argv)
{
    if (argc != 2 && argc != 3)
    {
        std::fprintf(stderr, "usage: follow-recording FILE [ROUNDS-WITHOUT-NEWS]\n");
        return 2;
    }

    try
    {
        followRecording(argv[1], argc > 2 ? std::atoi(argv[2]) : 100);
        return 0;
    }
    catch (Exceptions::BaseException const & failure)
    {
        std::fprintf(stderr, "%s\n", Platform::wstringToString(failure.what()).c_str());
        return 1;
    }
}
