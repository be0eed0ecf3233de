// Writes pictures and two sounds to an OP-Atom file each. All three have the
// same material package, so that an application that has one knows the others.

#include <Vantry/Analyzers/MPEG2VideoAnalyzer.h>
#include <Vantry/Analyzers/WaveAnalyzer.h>
#include <Vantry/DataIO/File/FileDataSink.h>
#include <Vantry/DataIO/File/FileSliceSource.h>
#include <Vantry/Exceptions/BaseException.h>
#include <Vantry/GenericContainer/ClipWrapper/Wrapper.h>
#include <Vantry/MXFIO/Creator.h>
#include <Vantry/Metadata/Structural/MaterialPackage.h>
#include <Vantry/Metadata/Structural/PackageHelpers.h>
#include <Vantry/Metadata/Structural/SourcePackage.h>
#include <Vantry/Metadata/Structural/TimelineTrack.h>
#include <Vantry/OPBuilders/MaterialPackageProxy.h>
#include <Vantry/OPBuilders/OPAtomAggregator.h>
#include <Vantry/OPBuilders/OPAtomBuilder.h>
#include <Vantry/OPBuilders/TrackProxy.h>
#include <Vantry/Packs/PartitionPack.h>
#include <Vantry/Platform/Text.h>
#include <Vantry/Platform/WideLiteral.h>
#include <Vantry/Schema/Dictionaries.h>
#include <Vantry/Types/UInt32.h>
#include <Vantry/Types/UUID.h>
#include <Vantry/Types/UniversalLabel.h>
#include <Vantry/Utils/TimeCode.h>

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Vantry;

namespace {

using Analyzers::MPEG2VideoAnalyzer;
using Analyzers::WaveAnalyzer;
using GenericContainer::EssenceAnalyzer;
using GenericContainer::RP224UniversalLabels;
using Metadata::Structural::GenericPackage;
using MXFIO::PullCreator;
using Platform::wide;
using Analyzer = Templates::SharedPtr<EssenceAnalyzer>;
using Dictionary = Templates::SharedPtr<MetaMetadata::Dictionary>;
using Rate = Templates::Rational<int>;

unsigned int const GRID = 512;

Templates::SharedPtr<DataIO::SliceSource> open(std::string const & path)
{
    UInt64 const usualSize = 0;
    return Templates::SharedPtr<DataIO::SliceSource>(
        new DataIO::File::FileSliceSource(Platform::stringToWstring(path.c_str()).c_str(), usualSize, usualSize));
}

/// An analyzer that knows the format of its input.
Analyzer preloaded(EssenceAnalyzer * analyzer, std::string const & path)
{
    Analyzer const owner(analyzer);
    if (!analyzer->preload())
        throw std::runtime_error(path + ": the format isn't known");
    return owner;
}

OPBuilders::OPAtomBuilder makeBuilder(Dictionary const & dictionary)
{
    Types::UUID const product(wide(u"7d1f3a60-52c4-4b8e-b9a3-08e6d4c2715f"),
                              Types::StringRepresentationEncodingType::RFC4122);
    return {dictionary, wide(u"Example"), wide(u"Atoms"), wide(u"1.0"), product, nullptr, nullptr};
}

/// One file of the set, in the making.
class AtomFile
{
public:
    AtomFile(Dictionary const & dictionary, std::string path, Analyzer const & analyzer, Rate const & rate) :
        path_(std::move(path)),
        builder_(makeBuilder(dictionary)),
        file_(Platform::stringToWstring(path_.c_str()).c_str(), false, BUFFER_SIZE),
        creator_(builder_.metadata(), file_, SPARE_SPACE, ANY_SIZE)
    {
        UInt64 const sizeUnknown = 0;
        GenericContainer::ClipWrapper::Wrapper wrapper(builder_.metadata(), analyzer->universalLabel(), rate, {},
                                                       sizeUnknown);
        wrapper.kagSize(GRID);
        wrapper.generateTimecodeTrack(false); // that of the material package does
        wrapper.addAnalyzer(analyzer);
        Templates::auto_ptr<GenericContainer::Source> clip = wrapper.commit();

        int const framesPerSecond = (rate.numerator() + rate.denominator() / 2) / rate.denominator();
        Utils::TimeCode const tenHours(static_cast<unsigned char>(framesPerSecond), 10, 0, 0, 0, false, false);
        material_ = builder_.createMaterialPackage(tenHours, rate);
        material_->addSourcePackage(0, clip->sourcePackage());
        builder_.topLevelFilePackage(clip->sourcePackage());
        builder_.update();

        creator_.nonEssenceKAGSize(GRID);
        creator_.headerPartitionHasEssence(false);
        creator_.addEssenceContainer(clip, MXFIO::INDEX_NONE, MXFIO::INDEX_FOLLOWING, false, MXFIO::INDEX_AUTOMATIC);
    }

    OPBuilders::OPAtomBuilder & builder() { return builder_; }
    GenericPackage & materialPackage() { return material_->materialPackage(); }

    /// Writes all up to the footer. How long the essence is, is known then.
    void writeEssence()
    {
        while (creator_.status() != PullCreator::PullFooter)
            creator_.writeUnit(true);
        builder_.update();
    }

    /// Writes the rest, and packs and metadata as they are now.
    void finish()
    {
        builder_.update();
        while (creator_.status() != PullCreator::PullDone)
            creator_.writeUnit(true);

        creator_.finishWork(file_);
        if (!creator_.updatePartitions(file_, true))
            throw std::runtime_error(path_ + ": the metadata have outgrown their room");
        file_.flush();
    }

private:
    // The header gets the tracks of the other files later.
    static UInt64 const SPARE_SPACE = 16384;
    static UInt64 const ANY_SIZE = 0;
    static int const BUFFER_SIZE = 1 << 20;

    std::string const path_;
    OPBuilders::OPAtomBuilder builder_;
    DataIO::File::FileDataSink file_;
    MXFIO::Creator creator_;
    OPBuilders::MaterialPackageProxy * material_;
};

/// Each file's package gets the tracks of all, once all lengths are known. They
/// are numbered from 0, and the time code comes behind them.
void aggregate(std::vector<std::unique_ptr<AtomFile>> const & files)
{
    OPBuilders::OPAtomAggregator aggregator;
    for (auto const & file : files)
        aggregator.addOPAtomBuilder(&file->builder());
    aggregator.commit();

    Types::UInt32 const timeCodeTrack(static_cast<unsigned int>(files.size()));
    for (auto const & file : files)
        getTimecodeTrack(file->materialPackage())->trackID(&timeCodeTrack);
}

void write(std::string const & picture, std::vector<std::string> const & sounds, std::string const & output)
{
    auto const clip = RP224UniversalLabels::CLIP;
    std::vector<Analyzer> analyzers = {preloaded(new MPEG2VideoAnalyzer(open(picture), clip), picture)};
    for (std::string const & sound : sounds)
        analyzers.push_back(preloaded(new WaveAnalyzer(open(sound), clip), sound));
    Rate const rate = analyzers.front()->editRate();

    Dictionary const dictionary = Schema::builtInDictionary(); // one for all that is aggregated
    std::vector<std::unique_ptr<AtomFile>> files;
    for (Analyzer const & analyzer : analyzers)
    {
        std::string const path = output + "-" + std::to_string(files.size() + 1) + ".mxf";
        files.push_back(std::make_unique<AtomFile>(dictionary, path, analyzer, rate));
    }

    for (auto const & file : files)
        file->writeEssence();
    aggregate(files);
    for (auto const & file : files)
        file->finish();
}

}

int main(int argc, char ** argv)
{
    if (argc != 5)
    {
        std::fprintf(stderr, "usage: write-op-atom-set PICTURE.m2v LEFT.wav RIGHT.wav OUTPUT\n"
                             "makes OUTPUT-1.mxf, OUTPUT-2.mxf and OUTPUT-3.mxf\n");
        return 2;
    }

    try
    {
        write(argv[1], {argv[2], argv[3]}, argv[4]);
        return 0;
    }
    catch (Exceptions::BaseException const & failure)
    {
        std::fprintf(stderr, "%s\n", Platform::wstringToString(failure.what()).c_str());
    }
    catch (std::runtime_error const & failure)
    {
        std::fprintf(stderr, "%s\n", failure.what());
    }
    return 1;
}
