#pragma once

#include "IndexTables/DeltaEntry.h"
#include "IndexTables/IndexEntry.h"
#include "MXFIO/EssenceUtils.h"
#include "support/IndexSegments.h"
#include "support/MXFFile.h"
#include "support/StructuralMetadata.h"

#include <initializer_list>

namespace Vantry { namespace Tests {

unsigned int const PICTURE_ELEMENT = 0x15010500;
unsigned int const SOUND_ELEMENT = 0x16010100;
unsigned int const SYSTEM_ELEMENT = 0x04010100;

/// An essence container of a file: in each edit unit a packet for each track,
/// whose value starts with the number of the edit unit.
struct EssenceContainer
{
    unsigned int bodySID = 1;
    int rate = 25;
    unsigned int units = 4;
    std::vector<unsigned int> trackNumbers = {PICTURE_ELEMENT};

    /// All edit units in one packet of the first track, a byte for each.
    bool isClip = false;

    bool hasIndex = true;
    std::size_t valueSize = 10;

    Bytes unit(unsigned char number) const
    {
        Bytes bytes;
        for (unsigned int const trackNumber : trackNumbers)
            bytes += packet(MXFIO::trackNumber2Key(trackNumber), repeated(valueSize, number));
        return bytes;
    }

    FilePart part() const
    {
        FilePart part;
        part.bodySID = bodySID;
        for (unsigned int i = 0; i < units && !isClip; ++i)
            part.body += unit(static_cast<unsigned char>(i));
        if (isClip)
            part.body = packet(MXFIO::trackNumber2Key(trackNumbers[0]), counting(units));
        part.lie = [](Packs::PartitionPack & pack)
        {
            pack.bodyOffset(0);
        };
        if (!hasIndex)
            return part;

        part.indexSID = bodySID + 100;
        BytesSink sink;
        segment()->serialize(sink);
        part.index = sink.bytes();
        return part;
    }

private:
    // An entry for each edit unit, or one size for all.
    Templates::auto_ptr<IndexTables::IndexTableSegment> segment() const
    {
        auto segment = indexSegment(0, isClip ? 0 : units);
        segment->bodySID(bodySID);
        segment->indexSID(bodySID + 100);
        segment->indexEditRate(Types::Rational(rate, 1));
        if (isClip)
            segment->editUnitByteCount(1);

        unsigned int const unitSize = static_cast<unsigned int>(unit(0).size());
        for (std::size_t i = 0; i < trackNumbers.size() && !isClip; ++i)
            segment->addDeltaEntry(
                static_cast<unsigned int>(i),
                IndexTables::DeltaEntry(0, 0, static_cast<unsigned int>(i * unitSize / trackNumbers.size())));
        for (unsigned int i = 0; i < units && !isClip; ++i)
            segment->addIndexEntry(i, IndexTables::IndexEntry(UInt64(i) * unitSize));
        return segment;
    }
};

/// The packages of a file: one for each essence container, numbered from 1 as
/// their tracks are, and a material package.
class EssencePackages
{
public:
    /// A clip of a material package, in edit units of its track. There is no
    /// package 9.
    struct Clip
    {
        unsigned char package;
        unsigned int track;
        Int64 start;
        Int64 duration;
    };

    EssencePackages() :
        preface(metadata.make<Metadata::Structural::Preface>()),
        storage(metadata.make<Metadata::Structural::ContentStorage>()),
        material(metadata.make<Metadata::Structural::MaterialPackage>())
    {
        preface.contentStorage(&storage);
        add(material, 0);
    }

    Metadata::Structural::SourcePackage & addContainer(EssenceContainer const & container)
    {
        auto & package = metadata.make<Metadata::Structural::SourcePackage>();
        add(package, static_cast<unsigned char>(container.bodySID));
        addDescriptor(package, container);
        for (unsigned int i = 0; i < container.trackNumbers.size(); ++i)
            if (container.trackNumbers[i] != SYSTEM_ELEMENT)
                addTrack(package, i + 1, container.trackNumbers[i], container.rate, container.units,
                         {{0, 0, 0, container.units}});

        auto & data = metadata.make<Metadata::Structural::EssenceContainerData>();
        Types::UInt32 const bodySID(container.bodySID);
        Types::UInt32 const indexSID(container.bodySID + 100);
        data.bodySID(&bodySID);
        if (container.hasIndex)
            data.indexSID(&indexSID);
        data.linkedPackage(&package);
        storage.appendEssenceContainerData(&data);
        return package;
    }

    /// Adds a track with clips to a package.
    Metadata::Structural::TimelineTrack & addTrack(Metadata::Structural::GenericPackage & package, unsigned int trackID,
                                                   unsigned int trackNumber, int rate, Int64 length,
                                                   std::vector<Clip> const & clips)
    {
        Types::UniversalLabel const & kind = Metadata::Structural::DataDefinitionULs::picture();
        auto & track = *createTimelineTrack(*metadata, package, kind, trackID, trackNumber, 0, {rate, 1}, length);
        for (Clip const & clip : clips)
        {
            auto & added = *addSourceClip(*metadata, track.sequence(), kind, clip.start, clip.duration);
            Types::UMID32 const source = identifier(clip.package);
            Types::UInt32 const sourceTrack(clip.track);
            added.sourcePackageUID(&source);
            added.sourceTrackID(&sourceTrack);
        }
        return track;
    }

    StructuralMetadata metadata;
    Metadata::Structural::Preface & preface;
    Metadata::Structural::ContentStorage & storage;
    Metadata::Structural::MaterialPackage & material;

private:
    static Types::UMID32 identifier(unsigned char number) { return sample<Types::UMID32>(number); }

    void add(Metadata::Structural::GenericPackage & package, unsigned char number)
    {
        Types::UMID32 const uid = identifier(static_cast<unsigned char>(number + (number == 0 ? 100 : 0)));
        package.packageUID(&uid);
        storage.appendPackage(&package);
    }

    void addDescriptor(Metadata::Structural::SourcePackage & package, EssenceContainer const & container)
    {
        auto & descriptor = metadata.make<Metadata::Structural::WAVEAudioEssenceDescriptor>();
        Types::UniversalLabel const label(
            hex(container.isClip ? "060E2B34040101010D01030102060200" : "060E2B34040101010D01030102060100").data());
        descriptor.essenceContainer(&label);
        package.descriptor(&descriptor);
    }
};

}}
