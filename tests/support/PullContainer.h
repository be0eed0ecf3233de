#pragma once

#include "GenericContainer/Source.h"
#include "IndexTables/DeltaEntry.h"
#include "IndexTables/IndexEntry.h"
#include "IndexTables/IndexTableSegment.h"
#include "MXFIO/FutureUpdater.h"
#include "MXFIO/IndexTableGenerator.h"
#include "support/HeaderMetadata.h"
#include "support/Slices.h"

namespace Vantry { namespace Tests {

/// A packet of a container in short: "P0:30" is element 0 of the picture item
/// with 30 bytes, "X:57" one of the system item, "f50" fill of 50 bytes in all.
inline std::string told(KLV::Packet const & packet)
{
    KLV::Key const & key = packet.key();
    if (KLV::isFillItem(key))
        return "f" + std::to_string(packet.klvLength());
    if (key[12] == 0x04)
        return "X:" + std::to_string(packet.length());
    return std::string(1, "CPSD"[key[12] - 0x14]) + std::to_string(key[15]) + ":" + std::to_string(packet.length());
}

inline std::string told(Bytes const & bytes)
{
    std::string text;
    UInt64 const strange =
        forEachPacket(bytes, [&](KLV::Packet const & packet) { text += (text.empty() ? "" : " ") + told(packet); });
    return strange == 0 ? text : text + " and bytes of no packet";
}

/// Everything that a container gives.
struct PulledContainer
{
    struct Piece
    {
        Bytes bytes;
        bool complete;
        Templates::Rational<Int64> duration;
        Templates::SharedPtr<MXFIO::FutureUpdater> updater;
    };

    explicit PulledContainer(GenericContainer::Source & source)
    {
        for (bool goesOn = true; goesOn;)
        {
            DataIO::Chain chain;
            Piece piece = {{}, false, 0, {}};
            goesOn = source.next(chain, piece.complete, piece.updater, piece.duration);
            piece.bytes = bytesOf(chain);
            if (!chain.empty())
                pieces.push_back(piece);
        }
    }

    Bytes bytes() const
    {
        Bytes all;
        for (Piece const & piece : pieces)
            all += piece.bytes;
        return all;
    }

    /// Pieces in short, with " | " between them.
    std::string text() const
    {
        std::string text;
        for (Piece const & piece : pieces)
            text += (text.empty() ? "" : " | ") + told(piece.bytes);
        return text;
    }

    std::vector<Piece> pieces;
};

/// Has an index table made. To be called ahead of all else.
inline void wantIndex(GenericContainer::Source & source, MXFIO::IndexTableSegmentType type)
{
    MXFIO::IndexTableGenerator & generator = *source.indexTableGenerator();
    generator.indexSID(2);
    generator.bodySID(1);
    generator.indexStrategies(MXFIO::INDEX_NONE, MXFIO::INDEX_REPEATED, type);
}

/// The segments that there are at the end.
inline std::vector<Templates::SharedPtr<IndexTables::IndexTableSegment>> indexOf(GenericContainer::Source & source)
{
    std::vector<Templates::SharedPtr<IndexTables::IndexTableSegment>> segments;
    BytesSink sink;
    source.indexTableGenerator()->updateIndex();
    source.indexTableGenerator()->writeIndexSegments(true, sink);
    forEachPacket(sink.bytes(),
                  [&](KLV::Packet & packet)
                  {
                      segments.push_back(Templates::SharedPtr<IndexTables::IndexTableSegment>(
                          new IndexTables::IndexTableSegment(packet, nullptr)));
                  });
    return segments;
}

/// Where the index table has the elements of an edit unit.
inline std::vector<UInt64> placesOf(IndexTables::IndexTableSegment const & segment, unsigned int editUnit)
{
    bool const hasEntries = segment.indexEntryCount() != 0;
    UInt64 const start = hasEntries ? segment.indexEntry(editUnit).streamOffset()
                                    : UInt64(segment.editUnitByteCount()->value()) * editUnit;
    std::vector<UInt64> places;
    for (unsigned int i = 0; i < segment.deltaEntryCount(); ++i)
    {
        IndexTables::DeltaEntry const & delta = segment.deltaEntry(i);
        UInt64 const slice = delta.slice() != 0 ? segment.indexEntry(editUnit).sliceOffset(delta.slice() - 1u) : 0;
        places.push_back(start + slice + delta.elementDelta());
    }
    if (places.empty())
        places.push_back(start);
    return places;
}

/// Expects that the index table has the place of each packet, fill aside
/// unless `withFill`.
inline void expectIndexed(GenericContainer::Source & source, PulledContainer const & pulled, bool withFill)
{
    auto const segments = indexOf(source);
    ASSERT_EQ(segments.size(), 1u);
    UInt64 offset = 0;
    for (unsigned int i = 0; i < pulled.pieces.size(); ++i)
    {
        std::vector<UInt64> places;
        forEachPacket(pulled.pieces[i].bytes,
                      [&](KLV::Packet const & packet)
                      {
                          if (withFill || !KLV::isFillItem(packet.key()))
                              places.push_back(offset + packet.keyAbsoluteOffset());
                      });
        EXPECT_EQ(placesOf(*segments[0], i), places) << "edit unit " << i;
        offset += pulled.pieces[i].bytes.size();
    }
    if (segments[0]->indexEntryCount() != 0)
    {
        EXPECT_EQ(segments[0]->indexDuration().value(), static_cast<Int64>(pulled.pieces.size()));
    }
}

}}
