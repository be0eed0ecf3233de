#include "MXFIO/CustomElementReaderFactory.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/ElementReader.h"
#include "support/EssenceFile.h"
#include "support/Failure.h"

#include <gmock/gmock.h>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using IndexTables::DeltaEntry;
using IndexTables::IndexEntry;
using Ratio = Templates::Rational<Int64>;
using ReaderPtr = Templates::auto_ptr<ElementReader>;

// The payload of a unit.
Bytes payload(ElementEditUnit & unit)
{
    Bytes bytes(unit.payloadBytes());
    unit.packet->value().skip(unit.headBytes);
    bytes.resize(unit.packet->value().read(bytes.data(), bytes.size()));
    return bytes;
}

// What the next read gives; empty at the end.
Bytes next(ElementReader & reader)
{
    ElementEditUnit unit;
    return reader.nextElement(SEARCH_LIMIT, unit) ? payload(unit) : Bytes();
}

unsigned int const EDIT_UNITS = 30;

// Picture and sound in each edit unit. The element count bytes aren't those of
// the tracks.
Bytes frames(unsigned int from, unsigned int to)
{
    Bytes bytes;
    for (unsigned int i = from; i < to; ++i)
        bytes += element(PICTURE | 0x00020000, i, 100 + i) + element(SOUND | 0x00040000, i, 40);
    return bytes;
}

// Each third picture is stored ahead of the two that are shown before it.
std::vector<IndexEntry> frameEntries()
{
    signed char const OFFSETS[] = {1, 1, -2};
    std::vector<IndexEntry> entries;
    for (unsigned int i = 0; i < EDIT_UNITS; ++i)
    {
        IndexEntry entry(frames(0, i).size());
        entry.temporalOffset(OFFSETS[i % 3]);
        entry.flags(i % 3 == 0 ? 0x80 : 0x33);
        entry.addSliceOffset(0, 120 + i);
        entries.push_back(entry);
    }
    return entries;
}

MXFFile frameFile(bool isReordered = false)
{
    std::vector<DeltaEntry> const deltas = {{static_cast<signed char>(isReordered ? -1 : 0), 0, 0}, {0, 1, 0}};
    return MXFFile({{HEADER, CLOSED, {}, frames(0, 12), BODY_SID},
                    {BODY, CLOSED, {}, frames(12, EDIT_UNITS), BODY_SID},
                    {FOOTER, CLOSED, {}, {}, 0, variableIndex(0, frameEntries(), deltas), INDEX_SID}});
}

std::vector<TrackFacts> frameTracks(Int64 origin = 0)
{
    Int64 const duration = EDIT_UNITS - origin;
    return {{1, PICTURE, {25, 1}, duration, origin}, {2, SOUND, {25, 1}, duration, origin}};
}

TEST(ElementReader, ReadsTracksInTurns)
{
    ContainerFacts facts(frameTracks());
    OpenContainer open(frameFile().bytes(), facts);
    ReaderPtr const picture = open.content.elementReader(1, 0, EDIT_UNITS, {25, 1}, false);
    ReaderPtr const sound = open.content.elementReader(2, 0, EDIT_UNITS, {25, 1}, false);
    for (unsigned int i = 0; i < EDIT_UNITS; ++i)
    {
        EXPECT_EQ(picture->position(), Int64(i));
        EXPECT_EQ(next(*picture), repeated(100 + i, static_cast<unsigned char>(i)));
        EXPECT_EQ(next(*sound), repeated(40, static_cast<unsigned char>(i)));
    }
    EXPECT_TRUE(picture->isAtEnd());
    EXPECT_EQ(next(*picture), Bytes());
    EXPECT_TRUE(sound->setPosition(17));
    EXPECT_EQ(next(*sound), repeated(40, 17));
    EXPECT_EQ(next(*sound), repeated(40, 18));

    EXPECT_THAT(open.content.elements(), testing::ElementsAre(PICTURE | 0x00020000, SOUND | 0x00040000));
    ElementEditUnit unit;
    EXPECT_TRUE(picture->setPosition(4));
    EXPECT_TRUE(picture->nextElement(0, unit));
    EXPECT_EQ(unit.trackID, 1u);
    EXPECT_EQ(unit.editUnit, 4);
    EXPECT_EQ(unit.elementSize, 124u);
    EXPECT_EQ(unit.duration, Ratio(1, 25));
    EXPECT_EQ(unit.flags, 0x33);
    EXPECT_EQ(unit.temporalOffset, 1);
}

TEST(ElementReader, StartsBehindOriginAndStartOfTheClip)
{
    ContainerFacts facts(frameTracks(10));
    OpenContainer open(frameFile().bytes(), facts);
    ReaderPtr const whole = open.content.elementReader(2, 0, 20, {25, 1}, false);
    EXPECT_EQ(whole->origin(), 10);
    EXPECT_EQ(next(*whole), repeated(40, 10));
    EXPECT_TRUE(whole->setPosition(19));
    EXPECT_EQ(next(*whole), repeated(40, 29));
    EXPECT_EQ(next(*whole), Bytes());

    ReaderPtr const clip = open.content.elementReader(2, 5, 3, {25, 1}, false);
    EXPECT_EQ(next(*clip), repeated(40, 15));
    EXPECT_FALSE(clip->setPosition(4));
    EXPECT_EQ(clip->position(), 1) << "a position behind the end moves nothing";
    EXPECT_TRUE(clip->setPosition(3));
    EXPECT_EQ(next(*clip), Bytes());

    Ratio seconds(3, 50);
    EXPECT_TRUE(clip->setPosition(seconds));
    EXPECT_EQ(seconds, Ratio(1, 50));
    EXPECT_EQ(next(*clip), repeated(40, 16));
}

TEST(ElementReader, GoesToPicturesInTheOrderInWhichTheyAreShown)
{
    ContainerFacts facts(frameTracks());
    OpenContainer open(frameFile(true).bytes(), facts);
    ReaderPtr const picture = open.content.elementReader(1, 0, EDIT_UNITS, {25, 1}, false);
    ReaderPtr const sound = open.content.elementReader(2, 0, EDIT_UNITS, {25, 1}, false);
    for (unsigned int shown : {3u, 4u, 5u})
    {
        unsigned int const stored = shown == 5 ? 3 : shown + 1;
        EXPECT_TRUE(picture->setPosition(shown));
        EXPECT_EQ(next(*picture), repeated(100 + stored, static_cast<unsigned char>(stored)));
        EXPECT_TRUE(sound->setPosition(shown));
        EXPECT_EQ(next(*sound), repeated(40, static_cast<unsigned char>(shown)));
    }
}

TEST(ElementReader, IsntMadeWithoutWhatItNeeds)
{
    Bytes const bytes = frameFile().bytes();
    auto const make = [&](std::vector<TrackFacts> const & tracks, unsigned int trackID)
    {
        ContainerFacts facts(tracks);
        OpenContainer open(bytes, facts);
        open.content.elementReader(trackID, 0, -1, {25, 1}, false);
    };
    EXPECT_FAILURE(NotFound, "track != 0: Track not found.", make(frameTracks(), 3));
    EXPECT_FAILURE(InvalidElement, "editRate != 0: Track with invalid editRate", make({{1, PICTURE, {25, 0}, 5}}, 1));
    EXPECT_FAILURE(NotFound,
                   "seeker_ -> trackNumberExists (trackNumberValue): Track Number not found in this content Storage.",
                   make({{1, 0x17010100, {25, 1}, 5}}, 1));
    EXPECT_FAILURE(InvalidElement, "(sourcePackageDuration - trackDurationRational) < 1: duration with bad value.",
                   make({{1, PICTURE, {25, 1}, 30}, {2, SOUND, {25, 1}, 29}}, 2));

    ContainerFacts facts(frameTracks());
    OpenContainer open(bytes, facts);
    auto & track = *facts.package.track(0u);
    track.trackNumber(nullptr);
    EXPECT_FAILURE(NotFound, "trackNumber != 0: Track Number not found.",
                   open.content.elementReader(1, 0, -1, {25, 1}, false));
    track.sequence(nullptr);
    EXPECT_FAILURE(InvalidElement, "sequence != 0: Sequence not present in track.",
                   open.content.elementReader(1, 0, -1, {25, 1}, false));
    facts.data.linkedPackageUID(nullptr);
    EXPECT_FAILURE(BrokenLink, "sourcePackage != 0: Source package not found.",
                   open.content.elementReader(1, 0, -1, {25, 1}, false));
}

// A clip of samples of three bytes, at 48 kHz.
unsigned int const SAMPLES = 9600;

Bytes samples(unsigned int from, unsigned int to)
{
    Bytes bytes;
    for (unsigned int i = from; i < to; ++i)
        bytes +=
            {static_cast<unsigned char>(i >> 16), static_cast<unsigned char>(i >> 8), static_cast<unsigned char>(i)};
    return bytes;
}

Bytes clipFile(bool withIndex, Int64 indexDuration = 0)
{
    auto const segment = indexSegment(0, indexDuration);
    segment->indexSID(INDEX_SID);
    segment->indexEditRate({48000, 1});
    segment->editUnitByteCount(3u);
    Bytes const index = withIndex ? serialized(*segment) : Bytes();
    return MXFFile({{HEADER, CLOSED, {}, {}, 0, index, withIndex ? INDEX_SID : 0},
                    {BODY, CLOSED, {}, packet(trackNumber2Key(SOUND), samples(0, SAMPLES)), BODY_SID},
                    {FOOTER}})
        .bytes();
}

std::vector<TrackFacts> const CLIP_TRACK = {{1, SOUND, {48000, 1}, SAMPLES}};

TEST(ElementReader, ReadsAClipInPieces)
{
    for (Bytes const & bytes : {clipFile(false), clipFile(true), clipFile(true, SAMPLES)})
    {
        ContainerFacts facts(CLIP_TRACK, CLIP_WRAPPED);
        OpenContainer open(bytes, facts);
        ReaderPtr const reader = open.content.elementReader(1, 0, -1, {30000, 1001}, true);
        unsigned int const BORDERS[] = {0, 1602, 3203, 4805, 6406, 8008};
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(next(*reader), samples(BORDERS[i], BORDERS[i + 1])) << i;
        EXPECT_EQ(next(*reader), samples(8008, SAMPLES));
        EXPECT_EQ(next(*reader), Bytes());
        EXPECT_TRUE(reader->setPosition(3));
        EXPECT_EQ(next(*reader), samples(4805, 6406));
        EXPECT_EQ(reader->position(), 4);

        ReaderPtr const clip = open.content.elementReader(1, 2, 1, {25, 1}, true);
        EXPECT_EQ(next(*clip), samples(3840, 5760));
        EXPECT_EQ(next(*clip), Bytes());
        EXPECT_TRUE(clip->setPosition(0));
        EXPECT_TRUE(clip->setPosition(1)) << "the end counts as one";
        EXPECT_EQ(clip->position(), 1);
        EXPECT_EQ(next(*clip), Bytes());
    }

    // What is cut off isn't there.
    Bytes const bytes = clipFile(true);
    ContainerFacts facts(CLIP_TRACK, CLIP_WRAPPED);
    OpenContainer cut(bytes.first(bytes.size() - 3 * 6000), facts);
    ReaderPtr const reader = cut.content.elementReader(1, 0, -1, {25, 1}, true);
    EXPECT_EQ(next(*reader), samples(0, 1920));
    EXPECT_LT(next(*reader).size(), 3u * 1920);
    EXPECT_EQ(next(*reader), Bytes());
}

// Knows everything of a container, and makes readers by the library's way.
class Profile : public ContentStorageProfile, public CustomElementReaderFactory
{
public:
    VANTRY_CLASS_ALLOCATION

    KnowledgeStatus editUnitsPerPartition(unsigned int * editUnits) override
    {
        *editUnits = 12;
        return KNOWLEDGE_KNOWN;
    }
    KnowledgeStatus editUnitByteCount(unsigned int * bytes) override
    {
        *bytes = 3;
        return KNOWLEDGE_KNOWN;
    }
    KnowledgeStatus duration(Int64 * editUnits) override
    {
        *editUnits = SAMPLES;
        return KNOWLEDGE_KNOWN;
    }
    KnowledgeStatus isClipWrapped(bool * isClip) override
    {
        *isClip = true;
        return KNOWLEDGE_KNOWN;
    }
    CustomElementReaderFactory * customElementReaderFactory() override { return this; }
    Templates::auto_ptr<ElementReader> elementReader(unsigned int trackNumber, Ratio const & trackRate, Ratio const &,
                                                     ContentStorageReader &, Int64 startPosition, Int64) override
    {
        asked = trackNumber == SOUND && trackRate == Ratio(25) && startPosition == 1;
        return Templates::auto_ptr<ElementReader>();
    }

    bool asked = false;
};

TEST(ElementReader, GoesByWhatTheApplicationKnows)
{
    auto * const known = new Profile;
    Templates::SharedPtr<ContentStorageProfile> const profile(known);
    ContainerFacts facts({{1, SOUND, {48000, 1}, -1}}, FRAME_WRAPPED);
    OpenFile file(clipFile(false));
    ContentStorageReader content(file.reader, facts.data, true, false, profile);
    EXPECT_TRUE(content.isClipWrapped());
    EXPECT_EQ(content.storedUnits(), Ratio(SAMPLES));
    ReaderPtr const reader = content.elementReader(1, 1, -1, {25, 1}, true);
    EXPECT_TRUE(known->asked);
    EXPECT_EQ(next(*reader), samples(1920, 3840));
}

}}}
