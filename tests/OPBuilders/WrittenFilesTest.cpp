// Files of the builders, written whole: read back here, and played by others.

#include "DataIO/File/FileDataSink.h"
#include "DataIO/File/FileDataSource.h"
#include "GenericContainer/ClipWrapper/Wrapper.h"
#include "GenericContainer/Multiplexer/Mux.h"
#include "GenericContainer/Source.h"
#include "MXFIO/Creator.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/EssenceReader.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "Metadata/PartitionMetadataUtils.h"
#include "OPBuilders/GenericOPBuilder.h"
#include "OPBuilders/OPAtomAggregator.h"
#include "OPBuilders/OPAtomBuilder.h"
#include "Utils/Test/DeterministicScope.h"
#include "support/BuiltMetadata.h"
#include "support/FFmpeg.h"
#include "support/MemoryAnalyzer.h"
#include "support/WrittenFile.h"

#include <regex>

namespace Vantry { namespace OPBuilders { namespace {

using namespace Tests;
using namespace Metadata::Structural;
using GenericContainer::EssenceAnalyzer;
using Tracks = std::map<unsigned int, Bytes>;

enum Wrapping : unsigned char
{
    FRAMES = 1,
    CLIP = 2
};

unsigned int const UNITS = 10;

// Uncompressed pictures of 64 by 32 in 4:2:2, or sound of 16 bits.
std::size_t unitSize(char kind)
{
    return kind == 'p' ? 64 * 32 * 2 : 1920 * 2;
}

char const * essenceContainer(char kind, Wrapping wrapping)
{
    if (kind == 'p')
        return wrapping == FRAMES ? "06 0E 2B 34 04 01 01 01 0D 01 03 01 02 05 01 01"
                                  : "06 0E 2B 34 04 01 01 01 0D 01 03 01 02 05 01 02";
    return wrapping == FRAMES ? "06 0E 2B 34 04 01 01 01 0D 01 03 01 02 06 01 00"
                              : "06 0E 2B 34 04 01 01 01 0D 01 03 01 02 06 02 00";
}

void describe(CDCIEssenceDescriptor & descriptor)
{
    Types::Rational const aspect(2, 1);
    Types::UInt32 const width(64), height(32), depth(8), horizontal(2), vertical(1);
    Types::UInt8 const progressive(0);
    descriptor.frameLayout(&progressive);
    descriptor.storedWidth(&width);
    descriptor.storedHeight(&height);
    descriptor.aspectRatio(&aspect);
    descriptor.addVideoLineMap(0, Types::Int32(1));
    descriptor.addVideoLineMap(1, Types::Int32(0));
    descriptor.componentDepth(&depth);
    descriptor.horizontalSubsampling(&horizontal);
    descriptor.verticalSubsampling(&vertical);
}

void describe(WAVEAudioEssenceDescriptor & descriptor)
{
    Types::Rational const samplingRate(48000, 1);
    Types::UInt32 const channels(1), bits(16), bytesPerSecond(96000);
    Types::UInt16 const blockAlign(2);
    descriptor.audioSamplingRate(&samplingRate);
    descriptor.channelCount(&channels);
    descriptor.quantizationBits(&bits);
    descriptor.blockAlign(&blockAlign);
    descriptor.avgBps(&bytesPerSecond);
}

// Essence that others know to play. It tells how long it is ahead of writing.
template <class Kind, class Descriptor>
class Playable : public MemoryAnalyzer<Kind>
{
public:
    Playable(char kind, Wrapping wrapping) : MemoryAnalyzer<Kind>(essence(kind, wrapping)) {}

    bool setMetadata(Metadata::PartitionMetadata & metadata, SourcePackage * package, unsigned int number,
                     unsigned int id) override
    {
        MemoryAnalyzer<Kind>::setMetadata(metadata, package, number, id);
        Types::Length const length(UNITS);
        Sequence & sequence = *package->track(package->tracksCount() - 1)->sequence();
        sequence.duration(&length);
        sequence.structuralComponent(0)->duration(&length);

        auto const * const several = dynamic_cast<MultipleDescriptor *>(package->descriptor());
        auto & descriptor = dynamic_cast<Descriptor &>(
            several != nullptr ? *several->subDescriptor(several->subDescriptorsCount() - 1) : *package->descriptor());
        describe(descriptor);
        return true;
    }

private:
    static MemoryEssence essence(char kind, Wrapping wrapping)
    {
        MemoryEssence essence = MemoryEssence::constant(UNITS, unitSize(kind));
        essence.elementType = static_cast<unsigned char>(kind == 'p' ? wrapping + 1 : wrapping);
        essence.label = essenceContainer(kind, wrapping);
        return essence;
    }
};

Templates::SharedPtr<EssenceAnalyzer> analyzer(char kind, Wrapping wrapping)
{
    using Pictures = Playable<GenericContainer::PictureAnalyzer, CDCIEssenceDescriptor>;
    using Sound = Playable<GenericContainer::SoundAnalyzer, WAVEAudioEssenceDescriptor>;
    using Analyzer = Templates::SharedPtr<EssenceAnalyzer>;
    if (kind == 'p')
        return Analyzer(new Pictures(kind, wrapping));
    return Analyzer(new Sound(kind, wrapping));
}

Bytes essenceOf(char kind)
{
    Bytes bytes;
    for (unsigned int unit = 1; unit <= UNITS; ++unit)
        bytes += repeated(unitSize(kind), static_cast<unsigned char>(unit));
    return bytes;
}

// Tracks such as "pss", and how they are written. A clip is a single track.
struct Plan
{
    std::string tracks;
    Wrapping wrapping;
    unsigned int editUnitsPerPartition = 0;
    MXFIO::IndexTableGeneration index = MXFIO::INDEX_NONE;
};

template <class Builder>
class File
{
public:
    template <class... Flags>
    explicit File(Plan const & plan, Flags... flags) :
        built(HeaderMetadata::dictionary(), nullptr, flags...), plan_(plan), source_(container())
    {
        built.builder.createMaterialPackage(Utils::TimeCode(25), 25)->addSourcePackage(0, source_->sourcePackage());
        built.builder.update();
    }

    SourcePackage & sourcePackage() { return source_->sourcePackage(); }

    void write()
    {
        DataIO::File::FileDataSink sink(file.name(), false, -1);
        MXFIO::Creator creator(built.builder.metadata(), sink, 2000, 0);
        creator.masterEditUnitsPerPartition(plan_.editUnitsPerPartition);
        creator.addEssenceContainer(source_, plan_.index, MXFIO::INDEX_REPEATED, false, MXFIO::INDEX_AUTOMATIC);
        while (creator.writeUnit(false) != MXFIO::PullCreator::PullDone)
            continue;
        built.builder.update();
        creator.finishWork(sink);
        EXPECT_TRUE(creator.updatePartitions(sink, true));
    }

    BuiltMetadata<Builder> built;
    TemporaryFile file;

private:
    Templates::auto_ptr<GenericContainer::Source> container()
    {
        Types::UniversalLabel const label(hex(essenceContainer(plan_.tracks[0], plan_.wrapping)).data());
        GenericContainer::ClipWrapper::Wrapper clip(built.builder.metadata(), label, 25, {}, 0);
        GenericContainer::Multiplexer::Mux frames(built.builder.metadata(), label, 25, nullptr);
        for (char kind : plan_.tracks)
            if (plan_.wrapping == CLIP)
                clip.addAnalyzer(analyzer(kind, CLIP));
            else
                frames.addAnalyzer(analyzer(kind, FRAMES), false, 0);
        return plan_.wrapping == CLIP ? clip.commit() : frames.commit();
    }

    Plan const plan_;
    Templates::auto_ptr<GenericContainer::Source> source_;
};

// What a player gets of each track of the material package. Packs and metadata
// are as they should be.
Tracks played(TemporaryFile const & file)
{
    DataIO::File::FileDataSource source(file.name(), -1);
    WrittenFile written(source);
    EXPECT_EQ(written.faults(), std::vector<std::string>());
    Packs::PartitionPack const & header = written.parts().front().pack;
    EXPECT_TRUE(!header.isOpen() && header.isComplete());

    source.seek(0);
    MXFIO::Reader2 reader(source, HeaderMetadata::dictionary(), 65536);
    auto const metadata = reader.firstPartitionWithFinalMetadata()->metadata();
    EXPECT_EQ(verifyPartitionMetadataStatus(*metadata, true), Packs::PartitionPack::CLOSED_COMPLETE);
    Preface const & preface = findPreface(*metadata);
    ContentStorage const & storage = *preface.contentStorage();
    unsigned int material = 0;
    while (dynamic_cast<MaterialPackage *>(storage.package(material)) == nullptr)
        ++material;
    MXFIO::EssenceReader essence(reader, preface, *storage.package(material), true, true, {});
    EXPECT_EQ(essence.duration(), Templates::Rational<Int64>(UNITS, 25));

    Tracks tracks;
    MXFIO::ElementEditUnit unit;
    while (essence.nextElementEditUnit(65536, unit))
    {
        Bytes value(unit.packet->length());
        unit.packet->value().readValue(value.data(), value.size());
        tracks[unit.trackID] += Bytes(value.data() + unit.headBytes, value.data() + value.size() - unit.tailBytes);
    }
    return tracks;
}

// What a program prints, complaints included.
Bytes printed(std::string const & command)
{
    TemporaryFile output;
    EXPECT_EQ(std::system((command + " > " + output.path().string() + " 2>&1").c_str()), 0) << command;
    return output.content();
}

std::string textOf(Bytes const & bytes)
{
    return std::string(bytes.begin(), bytes.end());
}

// Others get the same essence, and complain of nothing.
void expectPlayedByOthers(TemporaryFile const & file, std::string const & tracks, char const * pattern)
{
    if (!hasFFmpeg() || std::system("mediainfo --version > /dev/null 2>&1") != 0)
        return;
    std::string const path = file.path().string();
    std::map<char, unsigned int> streams;
    for (char kind : tracks)
    {
        std::string const command = "ffmpeg -nostdin -v warning -guess_layout_max 0 -i " + path +
                                    " -map 0:" + (kind == 'p' ? "v:" : "a:") + std::to_string(streams[kind]++);
        EXPECT_TRUE(printed(command + " -c copy -f data -") == essenceOf(kind)) << command;
        EXPECT_EQ(textOf(printed(command + " -f null -")), "");
    }

    // Tracks whose essence is in another file have no codec.
    std::string const facts = textOf(printed("ffprobe -v warning -show_entries format=duration -of csv=p=0 " + path));
    EXPECT_EQ(std::regex_replace(facts, std::regex("Unsupported codec with id 0 for input stream .\n"), ""),
              "0.400000\n");
    std::string const report = textOf(printed("mediainfo " + path));
    for (char const * fact : {pattern, "Closed / Complete", "400 ms"})
        EXPECT_NE(report.find(fact), std::string::npos) << report;
    EXPECT_FALSE(std::regex_search(report, std::regex("error|warning|conformance|truncated", std::regex::icase)))
        << report;
}

UInt64 checksum(Bytes const & bytes)
{
    // FNV-1a.
    UInt64 sum = 0xCBF29CE484222325u;
    for (unsigned char byte : bytes)
        sum = (sum ^ byte) * 0x100000001B3u;
    return sum;
}

TEST(WrittenFiles, GenericFilesPlayEverywhere)
{
    struct Case
    {
        char const * name;
        Plan plan;
        UInt64 golden;
    };
    for (Case const & c :
         {Case{"picture and sound, index in the footer", {"pss", FRAMES}, 0x6118D8CAE6A55B09},
          Case{"index in each of several partitions", {"ps", FRAMES, 4, MXFIO::INDEX_REPEATED}, 0xD9F40D45A499FE93},
          Case{"a clip of sound", {"s", CLIP}, 0xCD30C506FCFE8E59}})
    {
        SCOPED_TRACE(c.name);
        Tracks expected;
        for (char kind : c.plan.tracks)
            expected[static_cast<unsigned int>(expected.size() + 1)] = essenceOf(kind);
        for (int repeat = 0; repeat < 2; ++repeat)
        {
            Utils::Test::DeterministicScope const deterministic;
            File<GenericOPBuilder> made(c.plan, false, false);
            made.write();
            EXPECT_EQ(checksum(made.file.content()), c.golden);
            EXPECT_TRUE(played(made.file) == expected);
            if (repeat == 0)
                expectPlayedByOthers(made.file, c.plan.tracks, "OP-1a");
        }
    }
}

TEST(WrittenFiles, AtomsPlayAloneAndAggregated)
{
    std::map<std::string, UInt64> const golden = {
        {"s", 0xD249A3ADF36AB90D}, {"p", 0xC2FC485A808978EA}, {"pss", 0x1BB58920AB2C116C}};
    for (auto const & c : golden)
    {
        std::string const & tracks = c.first;
        SCOPED_TRACE(tracks);
        Utils::Test::DeterministicScope const deterministic;
        std::vector<std::unique_ptr<File<OPAtomBuilder>>> files;
        OPAtomAggregator aggregator;
        for (char kind : tracks)
        {
            files.push_back(std::make_unique<File<OPAtomBuilder>>(Plan{std::string(1, kind), CLIP}));
            files.back()->built.builder.topLevelFilePackage(files.back()->sourcePackage());
            aggregator.addOPAtomBuilder(&files.back()->built.builder);
        }
        bool const isSet = tracks.size() > 1;
        if (isSet)
            aggregator.commit();

        Bytes all;
        for (unsigned int i = 0; i < files.size(); ++i)
        {
            files[i]->write();
            all += files[i]->file.content();
            EXPECT_TRUE(played(files[i]->file) == (Tracks{{isSet ? i : 1, essenceOf(tracks[i])}}));
            expectPlayedByOthers(files[i]->file, std::string(1, tracks[i]), "OP-Atom");
        }
        EXPECT_EQ(checksum(all), c.second);
    }
}

}}}
