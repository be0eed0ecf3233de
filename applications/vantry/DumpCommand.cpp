#include "DumpCommand.h"

#include "CommonOptions.h"
#include "Failure.h"
#include "Input.h"
#include "KLV/Packet.h"
#include "Options.h"
#include "Output.h"
#include "PackFacts.h"
#include "PacketFaults.h"
#include "PacketLines.h"
#include "PacketWalk.h"
#include "SchemaInUse.h"
#include "SetNames.h"

#include <fmt/format.h>
#include <memory>

namespace Vantry { namespace Application {

namespace {

/// Writes the lines and keeps account of the damage.
class Dump : public PacketListener
{
public:
    Dump(PacketLines const & lines, Output & output) : lines_(lines), output_(output) {}

    void value(KLV::Packet & packet) override { facts_ = readPackFacts(packet); }

    void packet(KLV::Packet const & packet, UInt64 bytesThere) override
    {
        bool const cut = bytesThere < packet.length();
        lines_.packet(output_.buffer(), packet, facts_.get(), cut);
        output_.pieceDone();

        packetSeen_ = true;
        if (cut)
            damage(cutFault(packet, bytesThere));
    }

    void gap(UInt64 offset, UInt64 size, bool unreadableLength) override
    {
        lines_.gap(output_.buffer(), offset, size);
        output_.pieceDone();

        bool const runIn = offset == 0 && size <= LONGEST_RUN_IN && !unreadableLength;
        if (!runIn)
            damage(gapFault(offset, size));
    }

    /// \throws Failure when there was damage, or no packet at all.
    void finish(std::string const & file) const
    {
        if (!output_.anyText())
            throw Failure(ExitStatus::FAILED, file, "there is no data");
        if (!packetSeen_)
            throw Failure(ExitStatus::DAMAGED_INPUT, file, "there is no packet from offset 0 to the end");
        if (damages_ == 1)
            throw Failure(ExitStatus::DAMAGED_INPUT, file, firstDamage_);
        if (damages_ > 1)
            throw Failure(ExitStatus::DAMAGED_INPUT, file,
                          fmt::format("{} (damaged places: {})", firstDamage_, damages_));
    }

private:
    void damage(std::string const & what)
    {
        if (++damages_ == 1)
            firstDamage_ = what;
    }

    PacketLines const & lines_;
    Output & output_;
    std::unique_ptr<PackFacts> facts_;
    bool packetSeen_ = false;
    UInt64 damages_ = 0;
    std::string firstDamage_;
};

std::unique_ptr<PacketLines> makeLines(bool json, SetNames const & sets)
{
    if (json)
        return std::make_unique<JsonPacketLines>(sets);
    return std::make_unique<PlainPacketLines>(sets);
}

}

char const * DumpCommand::summary() const
{
    return "List every KLV packet: offset, key, length and name";
}

char const * DumpCommand::example() const
{
    return "vantry dump --json a.mxf";
}

char const * DumpCommand::jsonForm() const
{
    return "Print a JSON object a line, one for each packet or gap";
}

void DumpCommand::declareOptions(Options & options)
{
    options.file(file_, "The file to list, or - for standard input");
}

void DumpCommand::run(CommonOptions const & common, Output & output)
{
    SchemaInUse const schema(common.dictionary);
    SetNames const sets(schema.tables());
    std::unique_ptr<Input> const input = Input::open(file_);
    std::unique_ptr<PacketLines> const lines = makeLines(common.json, sets);

    Dump dump(*lines, output);
    walkPackets(*input, dump);
    dump.finish(file_);
}

}}
