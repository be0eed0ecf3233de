// Makes the header metadata of a file with one material package, changes them
// as another application would, writes them and reads them back.

#include <Vantry/DataIO/File/FileDataSink.h>
#include <Vantry/DataIO/File/FileDataSource.h>
#include <Vantry/Exceptions/BaseException.h>
#include <Vantry/KLV/Packet.h>
#include <Vantry/KLV/Reader.h>
#include <Vantry/Metadata/Listeners/GenerationUIDWriterListener.h>
#include <Vantry/Metadata/Listeners/LastModifiedDateUpdaterListener.h>
#include <Vantry/Metadata/PartitionDictionary.h>
#include <Vantry/Metadata/PartitionMetadata.h>
#include <Vantry/Metadata/PartitionMetadataUtils.h>
#include <Vantry/Metadata/Structural/ContentStorage.h>
#include <Vantry/Metadata/Structural/DataDefinitionULs.h>
#include <Vantry/Metadata/Structural/Identification.h>
#include <Vantry/Metadata/Structural/MaterialPackage.h>
#include <Vantry/Metadata/Structural/PackageHelpers.h>
#include <Vantry/Metadata/Structural/Preface.h>
#include <Vantry/Metadata/Structural/PrefaceHelpers.h>
#include <Vantry/Metadata/Structural/Sequence.h>
#include <Vantry/Metadata/Structural/SourceClip.h>
#include <Vantry/Metadata/Structural/StructuralMetadataKeys.h>
#include <Vantry/Metadata/Structural/TimecodeComponent.h>
#include <Vantry/Metadata/Structural/TimelineTrack.h>
#include <Vantry/Metadata/Structural/TrackHelpers.h>
#include <Vantry/Packs/PartitionPack.h>
#include <Vantry/Packs/PrimerPack.h>
#include <Vantry/Platform/Text.h>
#include <Vantry/Platform/WideLiteral.h>
#include <Vantry/Schema/Dictionaries.h>
#include <Vantry/Types/Batch.h>
#include <Vantry/Types/Boolean.h>
#include <Vantry/Types/Factories/TimeStamp.h>
#include <Vantry/Types/Factories/UID.h>
#include <Vantry/Types/Length.h>
#include <Vantry/Types/Position.h>
#include <Vantry/Types/Rational.h>
#include <Vantry/Types/Timestamp.h>
#include <Vantry/Types/UInt16.h>
#include <Vantry/Types/UInt32.h>
#include <Vantry/Types/UMID32.h>
#include <Vantry/Types/UTF16String.h>
#include <Vantry/Types/UUID.h>
#include <Vantry/Types/UniversalLabel.h>
#include <Vantry/Types/VersionType.h>
#include <Vantry/Utils/TimeCode.h>

#include <cstdio>

using namespace Vantry;
using namespace Vantry::Metadata;
using namespace Vantry::Metadata::Structural;

namespace {

using Platform::wide;
using Types::Factories::UID;
using Types::Factories::TimeStamp::getCurrentDate;

Types::Rational const EDIT_RATE(25, 1);
Types::Length const DURATION = 250;

template <class Set>
Set & make(PartitionMetadata & metadata, KLV::Key const & key)
{
    return dynamic_cast<Set &>(*metadata.createMetadataSet(key));
}

/// What metadata of one partition rest on: the schema, and the tags in its
/// primer pack.
Templates::auto_ptr<PartitionDictionary> partitionDictionary(Templates::auto_ptr<Packs::PrimerPack> primer)
{
    return Templates::auto_ptr<PartitionDictionary>(new PartitionDictionary(Schema::builtInDictionary(), primer));
}

/// Has the Preface list an application that works on the file.
Identification & identify(PartitionMetadata & metadata, unsigned short const * product, Types::Timestamp const & time)
{
    Types::UUID const generation = UID::generateUUID(UID::TIME_SNAP_VERSION_4);
    Types::UUID const productUID(wide(u"5f0e7a4c-2b1d-4c8e-9a63-d2f4b7c81e05"),
                                 Types::StringRepresentationEncodingType::RFC4122);
    Types::UTF16String const company(wide(u"Example"));
    Types::UTF16String const productName(product);
    Types::UTF16String const version(wide(u"1.0"));

    auto & identification = make<Identification>(metadata, StructuralMetadataKeys::identification());
    identification.thisGenerationUID(&generation);
    identification.companyName(&company);
    identification.productName(&productName);
    identification.versionString(&version);
    identification.productUID(&productUID);
    identification.modifiedDate(&time);

    Preface & preface = findPreface(metadata);
    preface.addIdentification(preface.identificationsCount(), &identification);
    return identification;
}

void addTimecodeTrack(PartitionMetadata & metadata, GenericPackage & package)
{
    Types::UniversalLabel const & kind = DataDefinitionULs::timecode12MInactive();
    Types::UInt16 const framesPerSecond = 25;
    Types::Position const start = 0;
    Types::Boolean const dropFrame(false);

    auto & timecode = make<TimecodeComponent>(metadata, StructuralMetadataKeys::timecodeComponent());
    timecode.dataDefinition(&kind);
    timecode.duration(&DURATION);
    timecode.roundedTimecodeBase(&framesPerSecond);
    timecode.startTimecode(&start);
    timecode.dropFrame(&dropFrame);

    TimelineTrack & track = *createTimelineTrack(metadata, package, kind, 1, 0, 0, EDIT_RATE, DURATION);
    track.sequence()->addStructuralComponent(0, &timecode);
}

void addPictureTrack(PartitionMetadata & metadata, GenericPackage & package)
{
    Types::UniversalLabel const & kind = DataDefinitionULs::picture();
    TimelineTrack & track = *createTimelineTrack(metadata, package, kind, 2, 0, 0, EDIT_RATE, DURATION);

    // Zeros end the chain of sources. A clip of another package would take
    // sourcePackage and sourceTrack.
    unsigned char const zeros[32] = {};
    Types::UMID32 const noPackage(zeros);
    Types::UInt32 const noTrack = 0;
    SourceClip & clip = *addSourceClip(metadata, track.sequence(), kind, 0, DURATION);
    clip.sourcePackageUID(&noPackage);
    clip.sourceTrackID(&noTrack);
}

MaterialPackage & addPackage(PartitionMetadata & metadata, Types::Timestamp const & time)
{
    Types::UMID32 const umid = UID::generateBasicUMID(UID::MATERIAL_MIXED, UID::MNMI_SMPTE, UID::INSTANCE_NOT_DEFINED,
                                                      UID::TIME_SNAP_VERSION_1, 0);
    Types::UTF16String const name(wide(u"Untitled"));

    auto & package = make<MaterialPackage>(metadata, StructuralMetadataKeys::materialPackage());
    package.packageUID(&umid);
    package.packageName(&name);
    package.packageCreationDate(&time);
    package.packageModifiedDate(&time);
    addTimecodeTrack(metadata, package);
    addPictureTrack(metadata, package);
    return package;
}

/// All that must be there in a file, as an application made it some time ago.
void build(PartitionMetadata & metadata)
{
    unsigned short const milliseconds = 0;
    Types::Timestamp const time(2001, 2, 3, 4, 5, 6, milliseconds);
    Types::VersionType const version(1, 3);
    Types::UniversalLabel const pattern(wide(u"06.0e.2b.34.04.01.01.01.0d.01.02.01.01.01.09.00"),
                                        Types::StringRepresentationEncodingType::DOTTED_BYTES); // OP1a

    auto & preface = make<Preface>(metadata, StructuralMetadataKeys::preface());
    preface.version(&version);
    preface.lastModifiedDate(&time);
    preface.operationalPattern(&pattern);

    auto & storage = make<ContentStorage>(metadata, StructuralMetadataKeys::contentStorage());
    preface.contentStorage(&storage);
    storage.appendPackage(&addPackage(metadata, time));

    // Lists without entries have to be there too.
    preface.appendEssenceContainer(pattern);
    preface.removeEssenceContainer(0);
    preface.appendDmScheme(pattern);
    preface.removeDmScheme(0);

    Identification & maker = identify(metadata, wide(u"Ingest"), time);
    preface.generation(&maker);
}

/// The material package: the file has one.
GenericPackage & packageOf(PartitionMetadata const & metadata)
{
    return *findPreface(metadata).contentStorage()->package(0U);
}

TimecodeComponent & timecodeOf(GenericPackage const & package)
{
    return dynamic_cast<TimecodeComponent &>(*getTimecodeTrack(package)->sequence()->structuralComponent(0));
}

/// Changes the name and the start of the time code.
void edit(PartitionMetadata & metadata)
{
    Templates::SharedPtr<Listeners::GenerationUIDWriterListener> const generations(
        new Listeners::GenerationUIDWriterListener);
    Templates::SharedPtr<Listeners::LastModifiedDateUpdaterListener> const dates(
        new Listeners::LastModifiedDateUpdaterListener);
    metadata.addMetadataListener(generations, false);
    metadata.addMetadataListener(dates, false);
    generations->setIdentification(&identify(metadata, wide(u"Editor"), getCurrentDate()));

    GenericPackage & package = packageOf(metadata);
    Types::UTF16String const name(wide(u"Opening"));
    package.packageName(&name);
    Types::Position const tenHours = 10 * 60 * 60 * 25;
    timecodeOf(package).startTimecode(&tenHours);

    generations->commit();
    dates->commit();
    metadata.removeMetadataListener(generations);
    metadata.removeMetadataListener(dates);
}

/// Writes a header partition without a body.
void write(PartitionMetadata & metadata, char const * path)
{
    bool const closable = true;
    KLV::Key const key = Packs::buildPartitionPackKey(Packs::PartitionPack::HEADER_PARTITION,
                                                      verifyPartitionMetadataStatus(metadata, closable));
    Packs::PartitionPack pack(key, 1, 0, 0, *operationalPattern(metadata), essenceContainers(metadata));
    pack.headerByteCount(metadata.serializedSize(true, true));

    int const BUFFER_SIZE = 65536;
    DataIO::File::FileDataSink file(Platform::stringToWstring(path).c_str(), false, BUFFER_SIZE);
    pack.serialize(file);
    metadata.serialize(file, true, PartitionMetadata::ForwardDepthFirst, true);
    file.flush();
}

/// Takes a packet that has to come next.
Templates::auto_ptr<KLV::Packet> next(KLV::Reader & reader)
{
    UInt64 skipped = 0;
    return reader.nextKLV(skipped, 0);
}

void print(PartitionMetadata const & metadata)
{
    GenericPackage const & package = packageOf(metadata);
    Types::Timestamp const & date = *package.packageModifiedDate();
    Identification const * const editor = package.generation();
    std::printf("\"%s\", time code from %s, modified %04d-%02d-%02d %02d:%02d:%02d by %s\n",
                Platform::wstringToString(package.packageName()->value()).c_str(),
                Platform::wstringToString(startTimecode(package).toString(false, false).c_str()).c_str(), date.year(),
                date.month(), date.day(), date.hour(), date.minute(), date.second(),
                editor ? Platform::wstringToString(editor->productName()->value()).c_str() : "its maker");
}

void makeAndEdit(char const * path)
{
    PartitionMetadata metadata(partitionDictionary(Templates::auto_ptr<Packs::PrimerPack>(new Packs::PrimerPack)));
    build(metadata);
    print(metadata);
    edit(metadata);
    write(metadata, path);
}

/// Reads what `write` has written.
void readBack(char const * path)
{
    int const BUFFER_SIZE = 65536;
    DataIO::File::FileDataSource file(Platform::stringToWstring(path).c_str(), BUFFER_SIZE);
    KLV::Reader reader(file);
    Packs::PartitionPack const pack(*next(reader));
    UInt64 const end = file.absoluteOffset() + pack.headerByteCount();

    Templates::auto_ptr<Packs::PrimerPack> primer(new Packs::PrimerPack(*next(reader)));
    PartitionMetadata metadata(partitionDictionary(primer));
    while (file.absoluteOffset() < end)
        metadata.load(*next(reader));
    print(metadata);
}

}

int main(int argc, char ** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: edit-metadata FILE\n");
        return 2;
    }

    try
    {
        makeAndEdit(argv[1]);
        readBack(argv[1]);
        return 0;
    }
    catch (Exceptions::BaseException const & failure)
    {
        std::fprintf(stderr, "%s\n", Platform::wstringToString(failure.what()).c_str());
        return 1;
    }
}
