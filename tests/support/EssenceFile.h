#pragma once

#include "IndexTables/DeltaEntry.h"
#include "IndexTables/IndexEntry.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/EssenceUtils.h"
#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"
#include "support/IndexSegments.h"
#include "support/OpenFile.h"
#include "support/StructuralMetadata.h"

namespace Vantry { namespace Tests {

unsigned int const BODY_SID = 1;
unsigned int const INDEX_SID = 2;

unsigned int const SYSTEM_ITEM = 0x04010100;
unsigned int const PICTURE = 0x15010500;
unsigned int const SOUND = 0x16010100;

/// Labels of essence containers.
char const * const FRAME_WRAPPED = "06 0E 2B 34 04 01 01 02 0D 01 03 01 02 04 60 01"; // MPEG
char const * const CLIP_WRAPPED = "06 0E 2B 34 04 01 01 01 0D 01 03 01 02 06 02 00";  // Wave
char const * const UNKNOWN_WRAPPING = "06 0E 2B 34 04 01 01 0A 0D 01 03 01 02 7F 00 00";

/// Packet of an element whose value repeats the number of its edit unit.
inline Bytes element(unsigned int trackNumber, unsigned int editUnit, UInt64 valueSize)
{
    return packet(MXFIO::trackNumber2Key(trackNumber), repeated(valueSize, static_cast<unsigned char>(editUnit)));
}

/// What a track of the container's package says.
struct TrackFacts
{
    unsigned int id = 1;
    unsigned int number = PICTURE;
    Types::Rational rate = {25, 1};
    Int64 duration = -1;
    Int64 origin = 0;
};

/// The header metadata of one essence container, by a schema in which all is
/// optional.
class ContainerFacts
{
public:
    explicit ContainerFacts(std::vector<TrackFacts> const & tracks, char const * label = FRAME_WRAPPED) :
        metadata(sharedLenientDictionary()),
        package(metadata.make<Metadata::Structural::SourcePackage>()),
        data(metadata.make<Metadata::Structural::EssenceContainerData>())
    {
        Types::UMID32 const umid = sample<Types::UMID32>();
        Types::UniversalLabel const container(hex(label).data());
        auto & descriptor = metadata.make<Metadata::Structural::GenericSoundEssenceDescriptor>();
        descriptor.essenceContainer(&container);
        package.packageUID(&umid);
        package.descriptor(&descriptor);

        Types::UInt32 const bodySID(BODY_SID);
        Types::UInt32 const indexSID(INDEX_SID);
        data.bodySID(&bodySID);
        data.indexSID(&indexSID);
        data.linkedPackage(&package);
        for (TrackFacts const & track : tracks)
            createTimelineTrack(*metadata, package, Metadata::Structural::DataDefinitionULs::picture(), track.id,
                                track.number, track.origin, track.rate, track.duration);
    }

    StructuralMetadata metadata;
    Metadata::Structural::SourcePackage & package;
    Metadata::Structural::EssenceContainerData & data;
};

/// A file and its container, open.
struct OpenContainer
{
    OpenContainer(Bytes const & bytes, ContainerFacts & facts, bool withRIP = true, bool computeSize = false) :
        file(bytes), content(file.reader, facts.data, withRIP, computeSize, {})
    {
    }

    OpenFile file;
    MXFIO::ContentStorageReader content;
};

/// The first byte of what comes next, fill items left out; -1 at the end.
inline int nextByte(MXFIO::ContentStorageReader & content)
{
    for (;;)
    {
        auto const packet = content.nextKLV(SEARCH_LIMIT);
        if (!packet)
            return -1;
        unsigned char byte = 0;
        if (packet->key()[4] == 1 && packet->key()[8] == 0x03)
            continue;
        return packet->value().read(&byte, 1) == 1 ? byte : -1;
    }
}

/// An index segment of edit units of one size, with delta entries.
inline Bytes constantIndex(Int64 start, Int64 duration, unsigned int editUnitByteCount,
                           std::vector<IndexTables::DeltaEntry> const & deltas = {})
{
    auto const segment = indexSegment(start, duration);
    segment->indexSID(INDEX_SID);
    segment->indexEditRate({25, 1});
    segment->editUnitByteCount(editUnitByteCount);
    for (unsigned int i = 0; i < deltas.size(); ++i)
        segment->addDeltaEntry(i, deltas[i]);
    return serialized(*segment);
}

/// An index segment with an entry for each edit unit.
inline Bytes variableIndex(Int64 start, std::vector<IndexTables::IndexEntry> const & entries,
                           std::vector<IndexTables::DeltaEntry> const & deltas = {})
{
    auto const segment = indexSegment(start, static_cast<Int64>(entries.size()));
    segment->indexSID(INDEX_SID);
    segment->indexEditRate({25, 1});
    if (!entries.empty())
        segment->sliceCount(static_cast<unsigned char>(entries.front().sliceOffsetCount()));
    for (unsigned int i = 0; i < deltas.size(); ++i)
        segment->addDeltaEntry(i, deltas[i]);
    for (unsigned int i = 0; i < entries.size(); ++i)
        segment->addIndexEntry(i, entries[i]);
    return serialized(*segment);
}

}}
