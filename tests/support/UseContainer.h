#pragma once

#include "GenericContainer/Demultiplexer.h"
#include "GenericContainer/ItemOutput.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/ElementReader.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Types/Rational.h"
#include "support/OpenFile.h"
#include "support/UseReader.h"

namespace Vantry { namespace Tests {

/// Opens each essence container that the final metadata of a file have.
/// Failures of one don't keep the others from it.
template <class Visit>
void forEachContainer(MXFIO::Reader & reader, Visit const & visit)
{
    auto const metadata = reader.firstPartitionWithFinalMetadata()->metadata();
    if (!metadata)
        return;

    auto const * const storage = Metadata::Structural::findPreface(*metadata).contentStorage();
    for (unsigned int i = 0; storage != nullptr && i < storage->essenceContainerDataCount(); ++i)
        attempt(
            [&]
            {
                auto * const container = storage->essenceContainerData(i);
                if (container == nullptr)
                    return;
                MXFIO::ContentStorageReader content(reader, *container, true, true, {});
                visit(content);
            });
}

/// Reads all of an element, up to a number of units.
inline void useElement(MXFIO::ContentStorageReader & content, unsigned int trackNumber, bool inPieces)
{
    auto const reader = content.elementReader(content.trackNumber2TrackID(trackNumber), 0, -1, {25, 1}, inPieces);
    MXFIO::ElementEditUnit unit;
    for (int i = 0; i < 50 && reader->nextElement(SEARCH_LIMIT, unit); ++i)
        unit.packet->value().discard();
    reader->setPosition(7);
    reader->nextElement(SEARCH_LIMIT, unit);
}

/// Takes a container apart, as far as outputs can hold what comes by.
inline void demultiplex(MXFIO::ContentStorageReader & content)
{
    UInt64 const MOST_CACHED = 1 << 20;
    GenericContainer::Demultiplexer demultiplexer(content, MOST_CACHED, GenericContainer::FAIL_AT_CACHE_LIMIT);
    for (auto const & output : demultiplexer.outputs())
        while (!output->endOfStream())
            output->read(1);
}

/// Does all that there is to do with a container and returns the number of
/// packets that a walk meets.
inline std::size_t use(MXFIO::ContentStorageReader & content)
{
    for (Int64 editUnit : {0, 1, 10, 3, 100000})
        attempt(
            [&]
            {
                if (content.seek(editUnit))
                    content.nextKLV(4096);
            });
    for (unsigned int trackNumber : content.elements())
        for (bool inPieces : {false, true})
            attempt(
                [&]
                {
                    content.fineSeek(2, trackNumber);
                    useElement(content, trackNumber, inPieces);
                });
    attempt([&] { content.refreshSource(); });
    attempt([&] { content.indexableDuration(); });

    content.seek(0);
    attempt([&] { demultiplex(content); });

    content.seek(0);
    std::size_t packets = 0;
    while (content.nextKLV(4096))
        ++packets;
    return packets;
}

}}
