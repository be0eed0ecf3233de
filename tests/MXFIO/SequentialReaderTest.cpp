#include "MXFIO/SequentialReader.h"

#include "IndexTables/IndexTableSegment.h"
#include "support/Failure.h"
#include "support/ForEachReadSize.h"
#include "support/MXFFile.h"

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Packs::PartitionPack;
using Templates::auto_ptr;

// Writes down what it is handed. Each second essence packet is kept unread.
class Log : public SequentialReader
{
public:
    explicit Log(DataIO::DataSource & source, bool preserve = false) :
        SequentialReader(source, Schema().dictionary()), preserve_(preserve)
    {
    }

    std::string text;

private:
    void handlePartition(auto_ptr<PartitionPack> pack, auto_ptr<Metadata::PartitionMetadata> metadata) override
    {
        text += "partition " + std::to_string(pack->partitionKind());
        text += metadata ? " of " + std::to_string(metadata->size()) + " sets; " : "; ";
    }

    void handleIndexTableSegment(auto_ptr<IndexTables::IndexTableSegment> segment) override
    {
        text += "segment of " + std::to_string(segment->bodySID().value()) + "; ";
    }

    void handleEssence(auto_ptr<KLV::Packet> packet) override
    {
        text += "essence " + std::to_string(packet->length()) + "; ";
        kept_.reset(kept_ ? nullptr : packet.release());
    }

    void handleRIP(auto_ptr<Packs::RandomIndexPack> rip) override
    {
        text += "rip of " + std::to_string(rip->size()) + "; ";
    }

    void handleFillItem(auto_ptr<KLV::Packet> packet) override
    {
        text += "fill " + std::to_string(packet->length()) + "; ";
    }

    void handleUnknown(auto_ptr<KLV::Packet>) override { text += "unknown; "; }
    bool preserveUnknowMetadataKLV(KLV::Key const &) override { return preserve_; }

    bool preserve_;
    auto_ptr<KLV::Packet> kept_;
};

std::string logOf(Bytes const & bytes, bool preserve = false)
{
    BytesSource source(bytes, 7);
    Log log(source, preserve);
    while (log.next(4096))
        continue;
    return log.text;
}

TEST(SequentialReader, HandsOverWhatItMeets)
{
    Bytes const segment = packet(IndexTables::IndexTableSegment::key(), hex("3F07 0004 00000005"));
    MXFFile const file({{HEADER, CLOSED, chainMetadata(2) + fill(60), {}, 0, {}, 0, fill(30)},
                        {BODY, CLOSED, {}, essence(3, 100) + packet(nodeKey(), {}), 1, segment, 2},
                        {FOOTER, CLOSED, chainMetadata(1), fill(20)}},
                       true, repeated(11, 0x06));
    forEachReadSize(file.bytes(),
                    [](DataIO::DataSource & source)
                    {
                        Log log(source);
                        while (log.next(11))
                            continue;
                        EXPECT_EQ(log.text, "partition 2 of 3 sets; partition 3; segment of 5; essence 100; essence "
                                            "100; essence 100; unknown; partition 4 of 2 sets; fill 0; rip of 3; ");
                    });
    EXPECT_EQ(logOf({}), "");
}

TEST(SequentialReader, TellsWhereMetadataEnds)
{
    Bytes const dark = packet(KLV::Key(hex("06 0E 2B 34 02 23 01 01 0D 01 01 01 01 01 7D 00").data()), {1, 2});
    std::tuple<char const *, Bytes, Bytes, bool, char const *> const cases[] = {
        {"unknown packets are dropped", chainMetadata(1) + dark, {}, false, "partition 2 of 2 sets; "},
        {"or loaded", chainMetadata(1) + dark + packet(strangeKey(), {}), {}, true, "partition 2 of 3 sets; "},
        {"a packet that ends too late", chainMetadata(1) + packet(nodeKey(), {}).first(18), hex("0000") + essence(1, 9),
         false, "partition 2 of 2 sets; essence 9; "},
    };
    for (auto const & [name, metadata, body, preserve, log] : cases)
    {
        SCOPED_TRACE(name);
        EXPECT_EQ(logOf(MXFFile({{HEADER, CLOSED, metadata, body}}, false).bytes(), preserve), log);
    }

    BytesSource source(MXFFile({{HEADER, CLOSED, packet(nodeKey(), {})}}, false).bytes());
    Log log(source);
    EXPECT_FAILURE(InvalidFormat,
                   "packet -> key () == PrimerPack::key (): This partition does not have a primer at the beginning of "
                   "the metadata.",
                   log.next(0));
    EXPECT_FALSE(log.next(0));
}

// A packet that isn't whole isn't handed over, unless its value alone is cut,
// which is left for the handler to read.
TEST(SequentialReader, EndsWhereTheSourceIsCut)
{
    Bytes const file =
        MXFFile({{HEADER, CLOSED, chainMetadata(1)}, {BODY, CLOSED, {}, {}, 0, {}, 0, fill(25)}}).bytes();
    std::string const whole = logOf(file);
    EXPECT_EQ(whole, "partition 2 of 2 sets; partition 3; fill 5; rip of 2; ");
    for (std::size_t size = 0; size < file.size(); ++size)
    {
        std::string const log = logOf(file.first(size));
        EXPECT_EQ(log, whole.substr(0, log.size())) << size;
        EXPECT_LT(log.size(), whole.size());
    }

    // What is bad in itself is no cut, also where nothing comes behind it.
    BytesSource source(packet(Packs::RandomIndexPack::key(), hex("00 00")));
    Log log(source);
    EXPECT_FAILURE(InvalidLength, "Not enough data to read Pack", log.next(0));
}

}}}
