// Loads the header metadata of real files by the built-in schema. What the
// schema doesn't know of them stands in UnknownInSamples.txt, each with its
// reason; all that they hold is written again, in every order.

#include "Exceptions/BaseException.h"
#include "MetaMetadata/AbstractMetaAttributeVisitor.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/MetaElement.h"
#include "MetaMetadata/MisplacedAttribute.h"
#include "MetaMetadata/UnknownAttribute.h"
#include "Metadata/DarkMetadataSet.h"
#include "Metadata/Element.h"
#include "Metadata/MetadataSet.h"
#include "Packs/PartitionPack.h"
#include "Utils/Text.h"
#include "support/FileBytes.h"
#include "support/HeaderMetadata.h"
#include "support/Samples.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <sstream>

namespace Vantry { namespace Tests { namespace {

using Metadata::MetadataSet;
using Metadata::PartitionMetadata;
using Order = PartitionMetadata::SerializationOrder;
using Findings = std::set<std::string>;

Order const ORDERS[] = {Order::PrefaceFirst,       Order::ForwardDepthFirst,
                        Order::ForwardBySiblings,  Order::NormalizedForward,
                        Order::NormalizedReversed, Order::NormalizedReversedExperimentalFirst};

// The header metadata of each partition, as much of it as there is.
std::vector<Bytes> headers(Bytes const & file)
{
    std::vector<Bytes> areas;
    UInt64 size = 0;
    forEachPacket(file,
                  [&](KLV::Packet & packet)
                  {
                      // There are stubs whose pack is empty.
                      if (Packs::isPartitionPack(packet.key()) && packet.length() != 0)
                          size = Packs::PartitionPack(packet).headerByteCount();
                      else if (Packs::isPrimerPack(packet.key()))
                      {
                          UInt64 const begin = packet.keyAbsoluteOffset();
                          UInt64 const end = begin + std::min(size, file.size() - begin);
                          areas.emplace_back(&file[begin], &file[begin] + (end - begin));
                      }
                  });
    return areas;
}

template <class Identifier>
std::string text(Identifier const & identifier)
{
    return Utils::wstringToString(identifier.toString(Types::StringRepresentationEncodingType::DOTTED_BYTES)).c_str();
}

template <class Named>
std::string symbol(Named const & named)
{
    return Utils::wstringToString(named.getProperty(Utils::stringToWstring("symbol"))).c_str();
}

// Why an element isn't where it belongs.
class Describe final : public MetaMetadata::AbstractMetaAttributeVisitor
{
public:
    explicit Describe(Packs::PrimerPack const & primer) : primer_(primer) {}

    void visit(MetaMetadata::MetaAttribute const & attribute) override { result = "twice: " + symbol(attribute); }
    void visit(MetaMetadata::MisplacedAttribute const & attribute) override
    {
        result = "misplaced: " + symbol(attribute.metaElement());
    }
    void visit(MetaMetadata::UnknownAttribute const & attribute) override
    {
        char const * const REASONS[] = {"tag not in primer", "label",         "static tag",
                                        "invalid tag",       "other meaning", "invalid value"};
        Types::UniversalLabel const * const label = primer_.find(attribute.localTag());
        result = REASONS[attribute.reason()];
        result += ": " + text(attribute.localTag());
        if (label != nullptr)
            result += " " + text(*label);
    }

    std::string result;

private:
    Packs::PrimerPack const & primer_;
};

void addFindings(MetadataSet const & set, Packs::PrimerPack const & primer, Findings & findings)
{
    if (set.metaMetadataSet() == nullptr)
    {
        findings.insert("set: " + text(set.key()));
        return;
    }
    for (auto element = set.invalidBegin(); element != set.invalidEnd(); ++element)
    {
        Describe visitor(primer);
        (*element)->metaAttribute()->accept(visitor);
        findings.insert(visitor.result + ", in " + symbol(*set.metaMetadataSet()));
    }
}

Findings findingsOf(HeaderMetadata const & header)
{
    Findings findings;
    auto const & primer = std::as_const(*header).partitionDictionary().primer();
    for (auto const & entry : *header)
        addFindings(*entry.second, primer, findings);
    for (auto dark = header->darkBegin(); dark != header->darkEnd(); ++dark)
        findings.insert("dark set: " + text((*dark)->key()));
    for (KLV::Key const & key : header.others)
        findings.insert("no set: " + text(key));
    for (KLV::Key const & key : header.lost)
        findings.insert("cut off: " + text(key));
    return findings;
}

// What is unknown in each file.
std::map<std::string, Findings> expectedFindings()
{
    std::map<std::string, Findings> files;
    std::ifstream in(VANTRY_SOURCE_TREE "/tests/applications/dictionary/UnknownInSamples.txt");
    std::string file;
    std::string reason;
    for (std::string line; std::getline(in, line);)
    {
        if (line.empty() || line[0] == '#')
            continue;
        if (line[0] != ' ')
            reason.clear(), file = line;
        else if (line[2] == '#')
            reason = line;
        else
        {
            EXPECT_NE(reason, "") << file << line << " is there for no reason";
            files[file].insert(line.substr(2));
        }
    }
    return files;
}

Findings findingsOf(std::vector<Bytes> const & headersOfFile)
{
    Findings all;
    for (Bytes const & bytes : headersOfFile)
    {
        HeaderMetadata const header(bytes);
        Findings findings = findingsOf(header);
        if (header.skipped != 0)
            findings.insert("no packet: " + std::to_string(header.skipped) + " bytes");
        all.merge(findings);
    }
    if (headersOfFile.empty())
        all.insert("no header metadata");
    return all;
}

TEST(RealMetadata, IsKnownButForWhatHasAReason)
{
    VANTRY_NEEDS_SAMPLES();
    std::map<std::string, Findings> expected = expectedFindings();
    for (auto const & path : samples())
    {
        EXPECT_THAT(findingsOf(headers(readFile(path))), testing::ContainerEq(expected[path.filename()])) << path;
        expected.erase(path.filename());
    }
    EXPECT_THAT(expected, testing::IsEmpty()) << "files that aren't there";
}

bool isKnown(KLV::Key const & key)
{
    return std::as_const(*HeaderMetadata::dictionary()).find(key) != nullptr;
}

// The triplets of a set, in a fixed order, under labels where the primer has
// them: it may have several tags for one.
std::multiset<Bytes> triplets(Bytes const & value, Packs::PrimerPack const & primer)
{
    std::ptrdiff_t const TAG_AND_LENGTH = 4;
    std::multiset<Bytes> all;
    for (auto at = value.begin(); value.end() - at >= TAG_AND_LENGTH;)
    {
        auto const end = at + std::min<std::ptrdiff_t>(value.end() - at, TAG_AND_LENGTH + (at[2] << 8 | at[3]));
        Types::UniversalLabel const * const label = primer.find(Types::LocalTag(&*at));
        all.insert((label != nullptr ? serialized(*label) : Bytes(at, at + 2)) + Bytes(at + 2, end));
        at = end;
    }
    return all;
}

// What the sets of header metadata hold. The bytes of unknown ones stay as
// they are.
std::multiset<std::multiset<Bytes>> content(Bytes const & header)
{
    std::multiset<std::multiset<Bytes>> sets;
    std::unique_ptr<Packs::PrimerPack> primer;
    forEachPacket(header,
                  [&](KLV::Packet & packet)
                  {
                      if (Packs::isPrimerPack(packet.key()))
                          primer = std::make_unique<Packs::PrimerPack>(packet);
                      if (packet.key()[4] != 2 || Packs::isPrimerPack(packet.key()))
                          return;
                      auto const end = header.begin() + packet.keyAbsoluteOffset() + packet.klvLength();
                      Bytes const value(end - packet.length(), end);
                      auto set = isKnown(packet.key()) ? triplets(value, *primer) : std::multiset<Bytes>{value};
                      set.insert(serialized(Types::UniversalLabel(packet.key())) + Bytes{packet.berLength()});
                      sets.insert(std::move(set));
                  });
    return sets;
}

void checkOrder(HeaderMetadata const & header, Bytes const & original, Order order)
{
    SCOPED_TRACE(order);
    Bytes const written = header.written(order);
    EXPECT_EQ(header->serializedSize(true, true), written.size());

    // Normalized orders move packages and tracks first.
    bool const asItWas = order <= Order::ForwardBySiblings;
    EXPECT_TRUE(content(written) == content(asItWas ? original : header.written(Order::PrefaceFirst)));

    HeaderMetadata const again(written);
    EXPECT_EQ(again->size(), header->size());
    EXPECT_EQ(findingsOf(again), findingsOf(header));
    EXPECT_TRUE(content(again.written(Order::PrefaceFirst)) == content(written));
}

TEST(RealMetadata, IsWrittenAsItWas)
{
    VANTRY_NEEDS_SAMPLES();
    for (auto const & path : samples())
        for (Bytes const & bytes : headers(readFile(path)))
        {
            SCOPED_TRACE(path.filename());
            HeaderMetadata const header(bytes);
            for (Order const order : ORDERS)
                checkOrder(header, bytes, order);
        }
}

}}}
