// Writes an OP1a file with two tracks of sound, made as they are asked for.

#include "ToneAnalyzer.h"

#include <Vantry/DataIO/File/FileDataSink.h>
#include <Vantry/Exceptions/BaseException.h>
#include <Vantry/GenericContainer/Multiplexer/Mux.h>
#include <Vantry/MXFIO/Creator.h>
#include <Vantry/Metadata/Structural/SourcePackage.h>
#include <Vantry/OPBuilders/GenericOPBuilder.h>
#include <Vantry/OPBuilders/MaterialPackageProxy.h>
#include <Vantry/OPBuilders/TrackProxy.h>
#include <Vantry/Platform/Text.h>
#include <Vantry/Platform/WideLiteral.h>
#include <Vantry/Schema/Dictionaries.h>
#include <Vantry/Types/UUID.h>
#include <Vantry/Utils/TimeCode.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

using namespace Vantry;

namespace {

using GenericContainer::EssenceAnalyzer;
using Platform::wide;
using Analyzer = Templates::SharedPtr<EssenceAnalyzer>;
using Rate = Templates::Rational<int>;

Rate const EDIT_RATE = 25;
unsigned int const GRID = 512;

OPBuilders::GenericOPBuilder makeBuilder()
{
    Types::UUID const product(wide(u"2b0c6d1e-7f3a-4c55-8a90-31d6b1f0e7c4"),
                              Types::StringRepresentationEncodingType::RFC4122);
    bool const essenceIsOutside = false;
    bool const cannotBeStreamed = false;
    return {Schema::builtInDictionary(),
            wide(u"Example"),
            wide(u"Tones"),
            wide(u"1.0"),
            product,
            nullptr,
            nullptr,
            essenceIsOutside,
            cannotBeStreamed};
}

/// A container in which each edit unit has a piece of both tones.
Templates::auto_ptr<GenericContainer::Source> makeContainer(OPBuilders::GenericOPBuilder const & builder,
                                                            UInt64 editUnits)
{
    Analyzer const left(new ToneAnalyzer(440, editUnits));
    Analyzer const right(new ToneAnalyzer(660, editUnits));
    bool const fill = false;

    GenericContainer::Multiplexer::Mux mux(builder.metadata(), left->universalLabel(), EDIT_RATE, nullptr);
    mux.kagSize(GRID);
    mux.addAnalyzer(left, fill, 0);
    mux.addAnalyzer(right, fill, 0);
    return mux.commit();
}

/// What the file plays: the whole package of the container, from ten o'clock
/// on.
void addMaterialPackage(OPBuilders::GenericOPBuilder & builder, Metadata::Structural::SourcePackage & package)
{
    Utils::TimeCode const tenHours(25, 10, 0, 0, 0, false, false);
    builder.createMaterialPackage(tenHours, EDIT_RATE)->addSourcePackage(0, package);
    builder.update();
}

void write(char const * path, UInt64 editUnits)
{
    UInt64 const SPARE_SPACE = 4096; // for those who change the metadata later
    UInt64 const ANY_SIZE = 0;
    int const BUFFER_SIZE = 1 << 20;

    OPBuilders::GenericOPBuilder builder = makeBuilder();
    Templates::auto_ptr<GenericContainer::Source> container = makeContainer(builder, editUnits);
    addMaterialPackage(builder, container->sourcePackage());

    DataIO::File::FileDataSink file(Platform::stringToWstring(path).c_str(), false, BUFFER_SIZE);
    MXFIO::Creator creator(builder.metadata(), file, SPARE_SPACE, ANY_SIZE);
    creator.nonEssenceKAGSize(GRID);
    creator.headerPartitionHasEssence(false);
    creator.addEssenceContainer(container, MXFIO::INDEX_NONE, MXFIO::INDEX_FOLLOWING, false, MXFIO::INDEX_AUTOMATIC);

    bool const closed = true;
    while (creator.status() != MXFIO::PullCreator::PullDone)
    {
        if (creator.status() == MXFIO::PullCreator::PullFooter)
            builder.update();
        creator.writeUnit(closed);
    }

    // Now that all is known, the partitions get their durations, and the place
    // of the footer.
    creator.finishWork(file);
    if (!creator.updatePartitions(file, closed))
        throw std::runtime_error("the metadata have outgrown their room");
    file.flush();
}

}

int main(int argc, char ** argv)
{
    unsigned long long const editUnits = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 250;
    if (argc < 2 || argc > 3 || editUnits == 0)
    {
        std::fprintf(stderr, "usage: write-op1a FILE [EDITUNITS]\n");
        return 2;
    }

    try
    {
        write(argv[1], editUnits);
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
