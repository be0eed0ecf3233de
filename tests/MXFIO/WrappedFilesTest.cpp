// Files of frame-wrapped and clip-wrapped essence, written by the creator and
// read back by the readers, edit unit by edit unit.

#include "GenericContainer/ClipWrapper/Wrapper.h"
#include "GenericContainer/Multiplexer/Mux.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/Creator.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/ElementReader.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "support/BytesFile.h"
#include "support/MemoryAnalyzer.h"
#include "support/RootMetadata.h"
#include "support/WrittenFile.h"

#include <gtest/gtest.h>

#include <functional>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Analyzer = Templates::SharedPtr<GenericContainer::EssenceAnalyzer>;
using Source = Templates::auto_ptr<GenericContainer::Source>;
using GenericContainer::Multiplexer::Mux;

Int64 const EDIT_UNITS = 20;

// Pictures of 300 to 319 bytes.
std::vector<std::size_t> pictureSizes()
{
    std::vector<std::size_t> sizes(EDIT_UNITS, 300);
    for (std::size_t i = 0; i < sizes.size(); ++i)
        sizes[i] += i;
    return sizes;
}

Analyzer pictures(bool constant, unsigned int bound = 0)
{
    MemoryEssence essence =
        constant ? MemoryEssence::constant(EDIT_UNITS, 300) : MemoryEssence::ofSizes(pictureSizes());
    essence.bound = std::max(essence.bound, bound);
    return Analyzer(new MemoryPictures(essence));
}

Analyzer sound()
{
    return Analyzer(new MemorySound(MemoryEssence::constant(EDIT_UNITS, 64)));
}

Types::UniversalLabel labelOf(char const * version)
{
    return Types::UniversalLabel(hex(std::string("06 0E 2B 34 04 01 01 ") + version).data());
}

Types::UniversalLabel const FRAMES = labelOf("02 0D 01 03 01 02 04 60 01");
Types::UniversalLabel const CLIP = labelOf("01 0D 01 03 01 02 06 02 00");

struct Wrapping
{
    char const * name;
    bool constantPictures;
    std::function<Source(Templates::SharedPtr<Metadata::PartitionMetadata> const &, std::vector<Analyzer> &)> wrap;
};

// A multiplex of pictures and sound, set up further by `set`.
Wrapping muxed(char const * name, bool constant, std::function<void(Mux &)> const & set, unsigned int bound = 0)
{
    return {name, constant,
            [=](Templates::SharedPtr<Metadata::PartitionMetadata> const & metadata, std::vector<Analyzer> & analyzers)
            {
                Mux mux(metadata, FRAMES, 25, nullptr);
                set(mux);
                analyzers = {pictures(constant, bound), sound()};
                for (Analyzer const & analyzer : analyzers)
                    mux.addAnalyzer(analyzer, bound != 0, 0);
                return mux.commit();
            }};
}

Wrapping clip(char const * name, bool constant, UInt64 size, unsigned int kagSize)
{
    return {name, constant,
            [=](Templates::SharedPtr<Metadata::PartitionMetadata> const & metadata, std::vector<Analyzer> & analyzers)
            {
                GenericContainer::ClipWrapper::Wrapper wrapper(metadata, CLIP, 25, {}, size);
                wrapper.kagSize(kagSize);
                analyzers = {pictures(constant)};
                wrapper.addAnalyzer(analyzers.front());
                Source source = wrapper.commit();
                dynamic_cast<Metadata::Structural::FileDescriptor &>(*source->sourcePackage().descriptor())
                    .essenceContainer(&CLIP);
                return source;
            }};
}

// The payload of the element that comes next.
Bytes next(ElementReader & reader)
{
    ElementEditUnit unit;
    if (!reader.nextElement(65536, unit))
        return {};
    Bytes bytes(unit.payloadBytes());
    unit.packet->value().skip(unit.headBytes);
    bytes.resize(unit.packet->value().read(bytes.data(), bytes.size()));
    return bytes;
}

// Every edit unit of every track, from the last to the first.
void readBack(Bytes const & bytes, Wrapping const & wrapping)
{
    BytesSource source(bytes);
    Reader2 reader(source, HeaderMetadata::dictionary(), 65536);
    auto const metadata = reader.firstPartitionWithFinalMetadata()->metadata();
    auto const * storage = Metadata::Structural::findPreface(*metadata).contentStorage();
    ContentStorageReader content(reader, *storage->essenceContainerData(0), true, true, {});
    EXPECT_TRUE(content.isSeekExact());

    for (unsigned int const number : content.elements())
    {
        auto const element = content.elementReader(content.trackNumber2TrackID(number), 0, EDIT_UNITS, {25, 1}, true);
        for (Int64 unit = EDIT_UNITS - 1; unit >= 0; --unit)
        {
            std::size_t const size = number >> 24 == 0x16 ? 64 : 300 + (wrapping.constantPictures ? 0 : unit);
            EXPECT_TRUE(element->setPosition(unit));
            EXPECT_EQ(next(*element), repeated(size, static_cast<unsigned char>(unit + 1))) << number << " " << unit;
        }
    }
}

TEST(WrappedFiles, AreExactAndReadBack)
{
    auto const plain = [](Mux &) {
    };
    Wrapping const WRAPPINGS[] = {
        muxed("variable pictures", false, plain),
        muxed("on a grid", false, [](Mux & mux) { mux.kagSize(256); }),
        muxed("constant", true, plain),
        muxed("constant on a grid", true, [](Mux & mux) { mux.kagSize(512); }),
        muxed("filled up to a bound", false, plain, 400),
        muxed("padded items", false, [](Mux & mux) { mux.paddToItem(0, 0, 512, 128, 0); }),
        muxed("padded edit units", false, [](Mux & mux) { mux.paddToEditUnit(1024); }),
        clip("a clip of known size", true, EDIT_UNITS * 300, 1),
        clip("a clip whose size comes last", true, 0, 1),
        clip("a clip on a grid", true, 0, 512),
        clip("a clip of variable pictures", false, 0, 1),
    };
    for (Wrapping const & wrapping : WRAPPINGS)
        for (unsigned int const unitsPerPartition : {0, 7})
            for (UInt64 const runInSize : {0, 100})
            {
                SCOPED_TRACE(std::string(wrapping.name) + ", " + std::to_string(unitsPerPartition) + " units, run-in " +
                             std::to_string(runInSize));
                RootMetadata header;
                BytesFile file(runInSize);
                std::vector<Analyzer> analyzers;
                {
                    Creator creator(header.shared(), file, 2000, 0);
                    creator.masterEditUnitsPerPartition(unitsPerPartition);
                    creator.addEssenceContainer(wrapping.wrap(header.shared(), analyzers), INDEX_FOLLOWING,
                                                INDEX_FOLLOWING, false, INDEX_AUTOMATIC);
                    write(creator);
                    finish(creator, file, runInSize);
                }
                BytesSource source(file.bytes);
                EXPECT_EQ(WrittenFile(source).faults(), std::vector<std::string>());
                readBack(file.bytes, wrapping);
            }
}

}}}
