// Gives the material package of a file another name. The metadata of each
// partition are written anew where they are; all else stays as it is.

#include <Vantry/DataIO/File/FileDataSink.h>
#include <Vantry/DataIO/File/FileDataSource.h>
#include <Vantry/DataIO/Memory/MemoryDataSink.h>
#include <Vantry/Exceptions/BaseException.h>
#include <Vantry/KLV/KeyPredicates.h>
#include <Vantry/KLV/Packet.h>
#include <Vantry/KLV/Reader.h>
#include <Vantry/MXFIO/Partition.h>
#include <Vantry/MXFIO/Reader2.h>
#include <Vantry/Metadata/Listeners/GenerationUIDWriterListener.h>
#include <Vantry/Metadata/Listeners/LastModifiedDateUpdaterListener.h>
#include <Vantry/Metadata/PartitionDictionary.h>
#include <Vantry/Metadata/PartitionMetadata.h>
#include <Vantry/Metadata/Structural/Identification.h>
#include <Vantry/Metadata/Structural/MaterialPackage.h>
#include <Vantry/Metadata/Structural/Preface.h>
#include <Vantry/Metadata/Structural/PrefaceHelpers.h>
#include <Vantry/Metadata/Structural/StructuralMetadataKeys.h>
#include <Vantry/Packs/PartitionPack.h>
#include <Vantry/Packs/PrimerPack.h>
#include <Vantry/Platform/Text.h>
#include <Vantry/Platform/WideLiteral.h>
#include <Vantry/Schema/Dictionaries.h>
#include <Vantry/Types/Factories/TimeStamp.h>
#include <Vantry/Types/Factories/UID.h>
#include <Vantry/Types/Timestamp.h>
#include <Vantry/Types/UTF16String.h>
#include <Vantry/Types/UUID.h>
#include <Vantry/Utils/Fill.h>

#include <cstdio>
#include <list>
#include <memory>
#include <stdexcept>
#include <string>

using namespace Vantry;
using namespace Vantry::Metadata;
using namespace Vantry::Metadata::Structural;

namespace {

using Platform::wide;
using Types::Factories::UID;

unsigned char const FILL_LENGTH_BYTES = 4;
UInt64 const SMALLEST_FILL = 16 + FILL_LENGTH_BYTES;

/// What comes to lie at a place of the file.
struct Patch
{
    UInt64 place;
    DataIO::Memory::MemoryDataSink bytes;
};

/// Loads the metadata of a partition. Sets that the dictionary doesn't know
/// are kept as they are; a set that can't be read is a failure, lest it be
/// lost.
std::unique_ptr<PartitionMetadata> load(MXFIO::Reader2 & reader, MXFIO::Partition const & partition)
{
    UInt64 skipped = 0;
    reader.source().seek(partition.metadataAbsoluteOffset());
    Templates::auto_ptr<Packs::PrimerPack> primer(new Packs::PrimerPack(*reader.klvReader().nextKLV(skipped, 0)));
    auto metadata = std::make_unique<PartitionMetadata>(
        Templates::auto_ptr<PartitionDictionary>(new PartitionDictionary(reader.dictionary(), primer)));

    while (reader.source().absoluteOffset() < partition.indexTableAbsoluteOffset())
    {
        auto const packet = reader.klvReader().nextKLV(skipped, 0);
        if (!KLV::isFillItem(packet->key()))
            metadata->load(*packet);
    }
    return metadata;
}

/// Has the Preface list this program, as one that has worked on the file.
Identification & identify(PartitionMetadata & metadata, Types::UUID const & generation, Types::Timestamp const & now)
{
    Types::UUID const productUID(wide(u"a41c5d92-9be0-4f0e-8a27-5c3e6f7d1b08"),
                                 Types::StringRepresentationEncodingType::RFC4122);
    Types::UTF16String const company(wide(u"Example"));
    Types::UTF16String const product(wide(u"Rename"));
    Types::UTF16String const version(wide(u"1.0"));

    auto & self = dynamic_cast<Identification &>(*metadata.createMetadataSet(StructuralMetadataKeys::identification()));
    self.thisGenerationUID(&generation);
    self.companyName(&company);
    self.productName(&product);
    self.versionString(&version);
    self.productUID(&productUID);
    self.modifiedDate(&now);

    Preface & preface = findPreface(metadata);
    preface.addIdentification(preface.identificationsCount(), &self);
    return self;
}

/// Listeners note which sets change, and have them tell by whom and when.
void rename(PartitionMetadata & metadata, Types::UTF16String const & name, Types::UUID const & generation)
{
    Templates::SharedPtr<Listeners::GenerationUIDWriterListener> const generations(
        new Listeners::GenerationUIDWriterListener);
    Templates::SharedPtr<Listeners::LastModifiedDateUpdaterListener> const dates(
        new Listeners::LastModifiedDateUpdaterListener);
    metadata.addMetadataListener(generations, false);
    metadata.addMetadataListener(dates, false);

    generations->setIdentification(&identify(metadata, generation, Types::Factories::TimeStamp::getCurrentDate()));
    for (MetadataSet * const set : metadata.find(StructuralMetadataKeys::materialPackage()))
        dynamic_cast<MaterialPackage &>(*set).packageName(&name);

    generations->commit();
    dates->commit();
}

/// Metadata, and a fill item up to where they ended.
void serialize(PartitionMetadata & metadata, UInt64 room, DataIO::DataSink & sink)
{
    UInt64 const size = metadata.serializedSize(true, true);
    if (size != room && size + SMALLEST_FILL > room)
        throw std::runtime_error("the metadata would take " + std::to_string(size) + " bytes, and have " +
                                 std::to_string(room));

    metadata.serialize(sink, true, PartitionMetadata::PrefaceFirst, true);
    if (size != room)
        Utils::writeFillKLV(sink, room - size, FILL_LENGTH_BYTES);
}

/// The metadata of all partitions that have any, renamed.
std::list<Patch> makePatches(char const * path, Types::UTF16String const & name)
{
    int const BUFFER_SIZE = 65536;
    UInt64 const PARTITION_SEARCH_LIMIT = 65536;
    DataIO::File::FileDataSource file(Platform::stringToWstring(path).c_str(), BUFFER_SIZE);
    MXFIO::Reader2 reader(file, Schema::builtInDictionary(), PARTITION_SEARCH_LIMIT);
    Types::UUID const generation = UID::generateUUID(UID::TIME_SNAP_VERSION_4);

    std::list<Patch> patches;
    for (MXFIO::Partition * partition = reader.headerPartition(); partition != nullptr;
         partition = reader.nextPartition(partition))
    {
        UInt64 const room = partition->partitionPack().headerByteCount();
        if (room == 0)
            continue;

        std::unique_ptr<PartitionMetadata> const metadata = load(reader, *partition);
        rename(*metadata, name, generation);
        patches.emplace_back();
        patches.back().place = partition->metadataAbsoluteOffset();
        serialize(*metadata, room, patches.back().bytes);
    }
    if (patches.empty())
        throw std::runtime_error("there are no header metadata");
    return patches;
}

/// Nothing is written until it is known that all fits.
void renameInPlace(char const * path, char const * name)
{
    std::list<Patch> const patches = makePatches(path, Types::UTF16String(Platform::stringToWstring(name).c_str()));

    bool const append = true; // else the file would be emptied
    int const BUFFER_SIZE = 65536;
    DataIO::File::FileDataSink file(Platform::stringToWstring(path).c_str(), append, BUFFER_SIZE);
    for (Patch const & patch : patches)
    {
        file.seek(patch.place);
        file.write(patch.bytes.rawBuffer(), patch.bytes.serializedSize());
    }
    file.flush();
    std::printf("%zu partitions have metadata\n", patches.size());
}

}

int main(int argc, char ** argv)
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: rename-in-place FILE NAME\n");
        return 2;
    }

    try
    {
        renameInPlace(argv[1], argv[2]);
        return 0;
    }
    catch (Exceptions::BaseException const & failure)
    {
        std::fprintf(stderr, "%s\n", Platform::wstringToString(failure.what()).c_str());
    }
    catch (std::runtime_error const & failure)
    {
        std::fprintf(stderr, "%s: %s\n", argv[1], failure.what());
    }
    return 1;
}
