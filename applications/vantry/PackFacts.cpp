#include "PackFacts.h"

#include "Exceptions/BaseException.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidPartitionStatus.h"
#include "IndexTables/IndexTableSegment.h"
#include "KLV/Packet.h"
#include "KeyName.h"
#include "Packs/PartitionPack.h"
#include "Packs/PrimerPack.h"
#include "Packs/RandomIndexPack.h"
#include "PartitionText.h"
#include "Text.h"
#include "Types/Batch.h"
#include "Types/Visitors/GetVisitor.h"

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace Vantry { namespace Application {

namespace {

using Packs::PartitionPack;
using Types::UniversalLabel;
using TextForm = Types::StringRepresentationEncodingType;

// A random index pack of this size lists more than a hundred thousand
// partitions. What claims to be longer would only fill the memory.
UInt64 const LONGEST_PACK = 2 << 20;

/// The object identifier, or the bytes of a label that is none of SMPTE.
std::string shortText(UniversalLabel const & label)
{
    try
    {
        Templates::wstring const identifier = label.toString(TextForm::OID);
        if (UniversalLabel(identifier.c_str(), TextForm::OID) == label)
            return textOf(label, TextForm::OID);
    }
    catch (Exceptions::BaseException const &)
    {
        // Its bytes make no identifier.
    }
    return textOf(label, TextForm::DOTTED_BYTES);
}

/// The bytes as JSON has them.
std::string quoted(UniversalLabel const & label)
{
    return '"' + textOf(label, TextForm::DOTTED_BYTES) + '"';
}

class PartitionFacts : public PackFacts
{
public:
    explicit PartitionFacts(KLV::Packet & packet) : pack_(packet) {}

    void appendPlain(fmt::memory_buffer & text) const override
    {
        fmt::format_to(std::back_inserter(text), ": header {} bytes, index {} bytes, pattern {}",
                       pack_.headerByteCount(), pack_.indexByteCount(), shortText(pack_.operationalPattern()));
        for (std::string const & container : containers(shortText))
            fmt::format_to(std::back_inserter(text), ", container {}", container);
    }

    void appendJson(fmt::memory_buffer & text) const override
    {
        fmt::format_to(std::back_inserter(text),
                       R"("partition": {{"kind": "{}", "status": "{}", "major": {}, "minor": {}, "kag_size": {}, )"
                       R"("this_partition": {}, "previous_partition": {}, "footer_partition": {}, )"
                       R"("header_byte_count": {}, "index_byte_count": {}, "index_sid": {}, "body_sid": {}, )"
                       R"("body_offset": {}, "operational_pattern": {}, "essence_containers": [{}]}})",
                       kindOf(pack_), statusOf(pack_), pack_.majorVersion(), pack_.minorVersion(), pack_.kagSize(),
                       pack_.thisPartition(), pack_.previousPartition(), pack_.footerPartition(),
                       pack_.headerByteCount(), pack_.indexByteCount(), pack_.indexSID(), pack_.bodySID(),
                       pack_.bodyOffset(), quoted(pack_.operationalPattern()), fmt::join(containers(quoted), ", "));
    }

private:
    std::vector<std::string> containers(std::string (*text)(UniversalLabel const &)) const
    {
        std::vector<std::string> texts;
        Types::Batch const & labels = pack_.essenceContainers();
        for (unsigned int i = 0; i < labels.size(); ++i)
            texts.push_back(text(*Types::Visitors::GetVisitor<UniversalLabel>(labels.at(i)).get()));
        return texts;
    }

    PartitionPack pack_;
};

class PrimerFacts : public PackFacts
{
public:
    explicit PrimerFacts(KLV::Packet & packet) : pack_(packet) {}

    void appendPlain(fmt::memory_buffer & text) const override
    {
        fmt::format_to(std::back_inserter(text), ": {} tags", pack_.count());
        if (pack_.countDuplicates() != 0)
            fmt::format_to(std::back_inserter(text), ", {} duplicates", pack_.countDuplicates());
    }

    void appendJson(fmt::memory_buffer & text) const override
    {
        fmt::format_to(std::back_inserter(text), R"("primer": {{"tags": {}, "duplicates": {}}})", pack_.count(),
                       pack_.countDuplicates());
    }

private:
    Packs::PrimerPack pack_;
};

class RandomIndexFacts : public PackFacts
{
public:
    explicit RandomIndexFacts(KLV::Packet & packet) : pack_(packet) {}

    void appendPlain(fmt::memory_buffer & text) const override
    {
        std::string_view separator = ": ";
        for (auto const & [offset, bodySID] : pack_.offsetIndexedMap())
        {
            fmt::format_to(std::back_inserter(text), "{}SID {} at {}", separator, bodySID, offset);
            separator = ", ";
        }
    }

    void appendJson(fmt::memory_buffer & text) const override
    {
        std::string_view separator = R"("entries": [)";
        for (auto const & [offset, bodySID] : pack_.offsetIndexedMap())
        {
            fmt::format_to(std::back_inserter(text), R"({}{{"body_sid": {}, "offset": {}}})", separator, bodySID,
                           offset);
            separator = ", ";
        }
        text.append(std::string_view(pack_.size() == 0 ? R"("entries": [])" : "]"));
    }

private:
    Packs::RandomIndexPack pack_;
};

class IndexFacts : public PackFacts
{
public:
    explicit IndexFacts(KLV::Packet & packet) : segment_(packet, nullptr) {}

    void appendPlain(fmt::memory_buffer & text) const override
    {
        auto const out = std::back_inserter(text);
        fmt::format_to(out, ": from edit unit {}", segment_.indexStartPosition().value());
        if (segment_.indexDuration().value() != 0)
            fmt::format_to(out, ", {} edit units", segment_.indexDuration().value());
        fmt::format_to(out, " at {}", editRate());
        if (segment_.editUnitByteCount() && segment_.editUnitByteCount()->value() != 0)
            fmt::format_to(out, ", {} bytes each", segment_.editUnitByteCount()->value());
        fmt::format_to(out, ", {} entries, body SID {}", segment_.indexEntryCount(), segment_.bodySID().value());
    }

    void appendJson(fmt::memory_buffer & text) const override
    {
        fmt::format_to(std::back_inserter(text),
                       R"("index_segment": {{"edit_rate": "{}", "start": {}, "duration": {}, )"
                       R"("edit_unit_byte_count": {}, "index_sid": {}, "body_sid": {}, "slice_count": {}, )"
                       R"("position_table_count": {}, "delta_entries": {}, "entries": {}}})",
                       editRate(), segment_.indexStartPosition().value(), segment_.indexDuration().value(),
                       numberOrNull(segment_.editUnitByteCount()), numberOrNull(segment_.indexSID()),
                       segment_.bodySID().value(), numberOrNull(segment_.sliceCount()),
                       numberOrNull(segment_.posTableCount()), segment_.deltaEntryCount(), segment_.indexEntryCount());
    }

private:
    std::string editRate() const
    {
        Types::Rational const & rate = segment_.indexEditRate();
        return fmt::format("{}/{}", rate.numerator(), rate.denominator());
    }

    template <class Number>
    static std::string numberOrNull(Number const * number)
    {
        return number ? std::to_string(number->value()) : "null";
    }

    IndexTables::IndexTableSegment segment_;
};

std::unique_ptr<PackFacts> read(KLV::Packet & packet)
{
    if (Packs::isPartitionPack(packet.key()))
        return std::make_unique<PartitionFacts>(packet);
    if (Packs::isPrimerPack(packet.key()))
        return std::make_unique<PrimerFacts>(packet);
    if (Packs::isRandomIndexPack(packet.key()))
        return std::make_unique<RandomIndexFacts>(packet);
    if (isIndexTableSegment(packet.key()))
        return std::make_unique<IndexFacts>(packet);
    return nullptr;
}

}

std::unique_ptr<PackFacts> readPackFacts(KLV::Packet & packet)
{
    if (packet.length() > LONGEST_PACK)
        return nullptr;

    try
    {
        return read(packet);
    }
    catch (Exceptions::InvalidLength const &)
    {
    }
    catch (Exceptions::InvalidPartitionStatus const &)
    {
    }
    return nullptr;
}

}}
