#include "GenericContainer/Demultiplexer.h"

#include "DataIO/SliceReader.h"
#include "MXFIO/SystemItemKLVPacketListener.h"
#include "support/EssenceFile.h"
#include "support/FFmpeg.h"
#include "support/Failure.h"
#include "support/GrowingSource.h"
#include "support/Slices.h"
#include "support/Threads.h"
#include "support/UseContainer.h"

#include <gmock/gmock.h>

#include <map>
#include <optional>

namespace Vantry { namespace GenericContainer { namespace {

using namespace Tests;
using Output = Templates::SharedPtr<ItemOutput>;

unsigned int const TRACKS[] = {PICTURE, SOUND, SOUND + 1};
UInt64 const MUCH = 64 << 20;

// Edit units of a track whose packets differ in size; there is no second
// sound in the first half.
UInt64 sizeOf(unsigned int trackNumber, unsigned int editUnit)
{
    return trackNumber == PICTURE ? 3000 + 17 * editUnit : 80;
}

bool has(unsigned int trackNumber, unsigned int editUnit)
{
    return trackNumber != TRACKS[2] || editUnit >= 20;
}

unsigned int const EDIT_UNITS = 40;

Bytes essenceOf(unsigned int trackNumber, unsigned int first = 0)
{
    Bytes bytes;
    for (unsigned int i = first; i < EDIT_UNITS; ++i)
        if (has(trackNumber, i))
            bytes += repeated(sizeOf(trackNumber, i), static_cast<unsigned char>(i));
    return bytes;
}

// Three partitions; the picture's count byte varies from packet to packet.
Bytes fileBytes()
{
    std::vector<FilePart> parts = {{HEADER}, {BODY}, {BODY}, {FOOTER}};
    for (unsigned int i = 0; i < EDIT_UNITS; ++i)
    {
        FilePart & part = parts[i / 15];
        part.bodySID = BODY_SID;
        part.body += element(SYSTEM_ITEM, i, 37) + fill(43) + element(PICTURE + (i % 3 << 16), i, sizeOf(PICTURE, i));
        for (unsigned int const sound : {SOUND, SOUND + 1})
            if (has(sound, i))
                part.body += element(sound, i, sizeOf(sound, i));
    }
    return MXFFile(parts).bytes();
}

// A source that fails at a place, once it is told to.
class FailingSource : public BytesSource
{
public:
    using BytesSource::BytesSource;

    UInt64 read(unsigned char * destination, UInt64 howMuch) override
    {
        if (absoluteOffset() + howMuch > failsAt)
            throw Exceptions::IOError("the disk has gone", __FILE__, __LINE__);
        return BytesSource::read(destination, howMuch);
    }

    UInt64 failsAt = ~UInt64(0);
};

struct OpenFailingFile
{
    explicit OpenFailingFile(Bytes const & bytes = fileBytes(),
                             UInt64 mostPerRead = std::numeric_limits<UInt64>::max()) :
        source(bytes, mostPerRead),
        reader(source, Tests::Schema().dictionary(), SEARCH_LIMIT),
        facts({{1, PICTURE}}),
        content(reader, facts.data, true, false, {})
    {
    }

    FailingSource source;
    MXFIO::Reader2 reader;
    ContainerFacts facts;
    MXFIO::ContentStorageReader content;
};

Bytes allOf(ItemOutput & output, UInt64 howMuch = 100)
{
    Bytes bytes;
    while (!output.endOfStream())
        bytes += bytesOf(*output.read(howMuch));
    EXPECT_EQ(output.read(1)->size(), 0u);
    return bytes;
}

TEST(Demultiplexer, GivesEachTrackItsBytesInOnePass)
{
    for (UInt64 const mostPerRead : {UInt64(1) << 32, UInt64(11)})
        for (unsigned int const first : {0, 1, 2})
        {
            SCOPED_TRACE(testing::Message() << first << " comes first, " << mostPerRead);
            OpenFailingFile file(fileBytes(), mostPerRead);
            Demultiplexer demultiplexer(file.content, MUCH, FAIL_AT_CACHE_LIMIT);
            std::vector<Output> outputs;
            for (unsigned int const trackNumber : TRACKS)
                outputs.push_back(demultiplexer.output(trackNumber));

            UInt64 const before = file.source.bytesRead();
            for (unsigned int i = 0; i < 3; ++i)
            {
                unsigned int const track = (first + i) % 3;
                EXPECT_EQ(allOf(*outputs[track]), essenceOf(TRACKS[track]));
                EXPECT_EQ(outputs[track]->absoluteOffset(), essenceOf(TRACKS[track]).size());
            }
            EXPECT_LT(file.source.bytesRead() - before, fileBytes().size());
        }
}

TEST(Demultiplexer, ReadsOnlyWhatIsAskedForOrMet)
{
    OpenFailingFile file;
    Demultiplexer demultiplexer(file.content, MUCH, FAIL_AT_CACHE_LIMIT);
    Output const picture = demultiplexer.output(PICTURE);
    Output const sound = demultiplexer.output(SOUND);
    UInt64 const before = file.source.bytesRead();
    EXPECT_EQ(picture->currentCachedSize(), 0u);

    EXPECT_EQ(bytesOf(*sound->read(1)), repeated(80, 0));
    EXPECT_LT(file.source.bytesRead() - before, 3500u);
    EXPECT_EQ(picture->currentCachedSize(), 3000u);

    EXPECT_EQ(picture->skip(2990), 2990u);
    EXPECT_EQ(picture->currentCachedSize(), 10u);
    EXPECT_EQ(picture->skip(10), 10u);
    EXPECT_EQ(sound->currentCachedSize(), 0u) << "skipping all that is there has read on";
    EXPECT_EQ(picture->absoluteOffset(), 3000u);
    EXPECT_EQ(picture->skip(3017 + 5), 3017u + 5);
    EXPECT_EQ(sound->currentCachedSize(), 80u);

    picture->signalEOS();
    EXPECT_FALSE(picture->endOfStream());
    EXPECT_EQ(picture->read(1)->size(), 3034u - 5);
    EXPECT_TRUE(picture->endOfStream());
    EXPECT_FALSE(sound->endOfStream());
    EXPECT_EQ(sound->skip(MUCH), essenceOf(SOUND).size() - 80);
    EXPECT_TRUE(sound->endOfStream());
}

TEST(Demultiplexer, GoesOnFromWhereTheContainerIs)
{
    OpenFailingFile file;
    for (unsigned int i = 0; i < 4 * 2 + 2; ++i)
        file.content.discardKLVPacket(file.content.nextKLV(SEARCH_LIMIT));
    Demultiplexer demultiplexer(file.content, MUCH, FAIL_AT_CACHE_LIMIT);
    auto const outputs = demultiplexer.outputs();
    EXPECT_EQ(outputs.size(), 3u) << "the system item has one, the second sound comes too late";
    EXPECT_EQ(allOf(*outputs[2]), essenceOf(SOUND, 2));
    EXPECT_EQ(allOf(*outputs[1]), essenceOf(PICTURE, 2));
    EXPECT_EQ(outputs[0]->skip(MUCH), 37 * (EDIT_UNITS - 3));
}

TEST(Demultiplexer, FollowsAFileThatGrows)
{
    Bytes const body = element(PICTURE, 1, 500) + element(PICTURE, 2, 500) + element(PICTURE, 3, 500);
    Bytes const file = MXFFile({{HEADER, OPEN, {}, body, BODY_SID}}, false).bytes() + repeated(20'000, 0);
    GrowingSource source(file, MXFFile::PACK_SIZE + 600);
    MXFIO::Reader2 reader(source, Tests::Schema().dictionary(), SEARCH_LIMIT);
    ContainerFacts facts({{1, PICTURE}});
    MXFIO::ContentStorageReader content(reader, facts.data, true, false, {});
    Demultiplexer demultiplexer(content, MUCH, FAIL_AT_CACHE_LIMIT);
    Output const picture = demultiplexer.output(PICTURE);
    EXPECT_EQ(allOf(*picture), repeated(500, 1)) << "a packet that isn't there whole";

    source.writeUpTo(file.size());
    content.refreshSource();
    EXPECT_EQ(bytesOf(*picture->read(1)), repeated(500, 2));
    EXPECT_EQ(allOf(*picture), repeated(500, 3));
}

struct CountingListener : MXFIO::SystemItemKLVPacketListener
{
    void systemItemPacketRead(Templates::auto_ptr<KLV::Packet>) override { ++packets; }
    unsigned int packets = 0;
};

TEST(Demultiplexer, OutputsMayComeGoAndOutliveIt)
{
    OpenFailingFile file;
    CountingListener listener;
    file.content.registerKLVPacketListener(&listener);
    std::optional<Demultiplexer> demultiplexer(std::in_place, file.content, MUCH, FAIL_AT_CACHE_LIMIT);
    Output picture = demultiplexer->output(PICTURE);
    Output const sound = demultiplexer->output(SOUND);
    EXPECT_FAILURE(InvalidState, "Track number 0x15030500 has an output already",
                   demultiplexer->output(PICTURE | 3 << 16));
    sound->read(1);
    EXPECT_EQ(listener.packets, 1u);

    picture.reset();
    EXPECT_EQ(sound->skip(160), 160u);
    picture = demultiplexer->output(PICTURE);
    Output const none = demultiplexer->output(0x17010100);
    demultiplexer.reset();
    EXPECT_EQ(allOf(*picture), essenceOf(PICTURE, 3));
    EXPECT_EQ(allOf(*none), Bytes());
    EXPECT_EQ(allOf(*sound), essenceOf(SOUND, 3));
    EXPECT_EQ(listener.packets, EDIT_UNITS);
}

TEST(Demultiplexer, AClipComesInPiecesAndItsOutputCanLeaveInTheMiddle)
{
    Bytes const clip = element(SOUND, 7, 3 << 20);
    for (Bytes const & body : {clip, Bytes(clip.begin(), clip.end() - 100)})
    {
        OpenFailingFile file(MXFFile({{HEADER, CLOSED, {}, body, BODY_SID}}, false).bytes());
        Demultiplexer demultiplexer(file.content, 0, FAIL_AT_CACHE_LIMIT);
        Output sound = demultiplexer.output(SOUND);
        EXPECT_EQ(sound->read(1)->size(), 65536u);
        EXPECT_EQ(sound->read(MUCH)->size(), 1u << 20);
        EXPECT_EQ(sound->absoluteOffset() + allOf(*sound).size(), body.size() - 20);

        file.content.seek(0);
        sound.reset();
        sound = demultiplexer.output(SOUND);
        EXPECT_EQ(sound->read(1)->size(), 65536u);
        sound.reset();
        sound = demultiplexer.output(SOUND);
        EXPECT_EQ(allOf(*sound), Bytes()) << "a part of a packet";
    }
}

TEST(Demultiplexer, AFullOutputStopsTheOthersUntilItIsRead)
{
    OpenFailingFile file;
    Demultiplexer demultiplexer(file.content, 10'000, FAIL_AT_CACHE_LIMIT);
    Output picture = demultiplexer.output(PICTURE);
    Output const sound = demultiplexer.output(SOUND);
    char const * const message = "The output of track number 0x15010500 holds as much as it may";
    EXPECT_FAILURE(InvalidState, message, sound->skip(MUCH));
    EXPECT_FAILURE(InvalidState, message, sound->read(1));
    EXPECT_EQ(sound->absoluteOffset(), 4 * 80u);
    EXPECT_EQ(picture->currentCachedSize(), 3000u + 3017 + 3034 + 3051);

    Bytes bytes;
    while (picture->currentCachedSize() != 0)
        bytes += bytesOf(*picture->read(1));
    EXPECT_EQ(sound->skip(4 * 80), 4 * 80u);
    EXPECT_EQ(bytes + allOf(*picture), essenceOf(PICTURE));

    OpenFailingFile again;
    Demultiplexer other(again.content, 10'000, FAIL_AT_CACHE_LIMIT);
    picture = other.output(PICTURE);
    Output const unhindered = other.output(SOUND);
    EXPECT_FAILURE(InvalidState, message, unhindered->skip(MUCH));
    picture.reset();
    EXPECT_EQ(unhindered->skip(MUCH), essenceOf(SOUND).size() - 4 * 80);
}

TEST(Demultiplexer, AFailureOfOneIsOneOfAllBehindWhatTheyHave)
{
    OpenFailingFile file;
    Demultiplexer demultiplexer(file.content, MUCH, FAIL_AT_CACHE_LIMIT);
    Output const picture = demultiplexer.output(PICTURE);
    Output const sound = demultiplexer.output(SOUND);
    sound->read(1);
    file.source.failsAt = file.source.absoluteOffset() + 4000;
    EXPECT_FAILURE(IOError, "the disk has gone", sound->skip(MUCH));

    // The source is well again, but nobody knows what was lost.
    file.source.failsAt = ~UInt64(0);
    EXPECT_EQ(picture->skip(3000 + 3017), 3000u + 3017);
    EXPECT_FALSE(picture->endOfStream());
    EXPECT_FAILURE(IOError, "the disk has gone", picture->read(1));
    EXPECT_FAILURE(IOError, "the disk has gone", sound->read(1));
    EXPECT_EQ(demultiplexer.output(TRACKS[2])->currentCachedSize(), 0u);
}

TEST(Demultiplexer, ThreadsTakeATrackEach)
{
    for (UInt64 const most : {UInt64(0), UInt64(5000), MUCH})
    {
        OpenFailingFile file;
        Demultiplexer demultiplexer(file.content, most, WAIT_AT_CACHE_LIMIT);
        std::vector<Output> outputs;
        for (unsigned int const trackNumber : TRACKS)
            outputs.push_back(demultiplexer.output(trackNumber));

        std::vector<Bytes> got(3);
        onThreads(3,
                  [&](unsigned int track)
                  {
                      Output const output = std::move(outputs[track]);
                      EXPECT_LE(output->currentCachedSize(), most + sizeOf(PICTURE, EDIT_UNITS));
                      EXPECT_EQ(output->skip(track == 1 ? 85 : 0), track == 1 ? 85u : 0u);
                      got[track] = allOf(*output, 1000);
                  });
        for (unsigned int const track : {0, 2})
            EXPECT_EQ(got[track], essenceOf(TRACKS[track]));
        EXPECT_EQ(got[1].size(), essenceOf(SOUND).size() - 85);
    }
}

TEST(Demultiplexer, ThreadsAllHearOfAFailureAndMayLeave)
{
    OpenFailingFile file;
    Demultiplexer demultiplexer(file.content, 0, WAIT_AT_CACHE_LIMIT);
    std::vector<Output> outputs = {demultiplexer.output(PICTURE), demultiplexer.output(SOUND),
                                   demultiplexer.output(SOUND + 1)};
    file.source.failsAt = file.source.absoluteOffset() + 100'000;
    std::atomic<int> failures{0};
    onThreads(3,
              [&](unsigned int track)
              {
                  Output const output = std::move(outputs[track]);
                  try
                  {
                      for (unsigned int i = 0; track != 2 || i < 1; ++i)
                          output->read(1);
                  }
                  catch (Exceptions::IOError const & failure)
                  {
                      std::string const text = Platform::wstringToString(failure.what()).c_str();
                      EXPECT_THAT(text, testing::EndsWith("the disk has gone"));
                      ++failures;
                  }
              });
    EXPECT_GE(failures, 2);
}

TEST(Demultiplexer, GivesWhatFFmpegExtracts)
{
    VANTRY_NEEDS_FFMPEG();
    FFmpegFile const mxf("-f lavfi -i testsrc2=s=720x576:r=25:d=2 -f lavfi -i sine=r=48000:d=2 -c:v mpeg2video -b:v 8M"
                         " -c:a pcm_s16le -f mxf");
    FFmpegFile const video("-f mxf -i " + mxf.path().string() + " -map 0:v -c copy -f mpeg2video");
    FFmpegFile const sound("-f mxf -i " + mxf.path().string() + " -map 0:a -c copy -f s16le");

    BytesSource source(readFile(mxf.path()));
    MXFIO::Reader2 reader(source, Vantry::Schema::builtInDictionary(), SEARCH_LIMIT);
    forEachContainer(reader,
                     [&](MXFIO::ContentStorageReader & content)
                     {
                         Demultiplexer demultiplexer(content, MUCH, FAIL_AT_CACHE_LIMIT);
                         std::map<unsigned int, Bytes> items;
                         auto const outputs = demultiplexer.outputs();
                         for (std::size_t i = 0; i < outputs.size(); ++i)
                             items[content.elements()[i] >> 24] = allOf(*outputs[i]);
                         EXPECT_TRUE(items[0x15] == readFile(video.path()));
                         EXPECT_TRUE(items[0x16] == readFile(sound.path()));
                         EXPECT_GT(items[0x16].size(), 190'000u);
                     });
}

}}}
