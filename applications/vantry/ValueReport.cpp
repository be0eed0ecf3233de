#include "ValueReport.h"

#include "MetadataTree.h"
#include "Schema/LabelNames.h"
#include "Text.h"
#include "Types/Array.h"
#include "Types/Batch.h"
#include "Types/Boolean.h"
#include "Types/DataStream.h"
#include "Types/DataValue.h"
#include "Types/ISO7String.h"
#include "Types/Int16.h"
#include "Types/Int32.h"
#include "Types/Int64.h"
#include "Types/Int8.h"
#include "Types/J2KCodingStyleDefault.h"
#include "Types/J2KPictureComponent.h"
#include "Types/J2KQuantisationDefault.h"
#include "Types/LocalTag.h"
#include "Types/ProductVersion.h"
#include "Types/RGBALayout.h"
#include "Types/Rational.h"
#include "Types/StrongReference.h"
#include "Types/Timestamp.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt64.h"
#include "Types/UInt8.h"
#include "Types/UMID32.h"
#include "Types/UMID64.h"
#include "Types/UTF16.h"
#include "Types/UTF16String.h"
#include "Types/UUID.h"
#include "Types/UniversalLabel.h"
#include "Types/Unknown.h"
#include "Types/VersionType.h"
#include "Types/Visitors/DelegateToBaseVisitor.h"
#include "Types/WeakReference.h"

#include <algorithm>
#include <fmt/format.h>

namespace Vantry { namespace Application {

namespace {

using TextForm = Types::StringRepresentationEncodingType;

std::string textOf(Types::Timestamp const & time)
{
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}.{:03}", time.year(), time.month(), time.day(), time.hour(),
                       time.minute(), time.second(), time.milliSecond());
}

std::string textOf(Types::ProductVersion const & version)
{
    static char const * const RELEASES[] = {"", " final", " development", " patched", " beta", " private"};
    std::size_t const release = version.releaseVersion();
    return fmt::format("{}.{}.{}.{}{}", version.major(), version.minor(), version.patch(), version.build(),
                       release < std::size(RELEASES) ? RELEASES[release] : fmt::format(" release {}", release));
}

/// A letter and the bits of each component, "R8G8B8A8", up to the component
/// that ends the layout.
std::string textOf(Types::RGBALayout const & layout)
{
    std::string text;
    for (unsigned int i = 0; i < layout.serializedSize() / sizeof(Types::RGBAComponent); ++i)
    {
        Types::RGBAComponent const component = layout.get(i);
        if (component.code == 0)
            break;
        bool const isLetter = component.code > ' ' && component.code < 0x7F;
        text += isLetter ? fmt::format("{:c}{}", component.code, component.depth)
                         : fmt::format("(0x{:02x}){}", component.code, component.depth);
    }
    return text;
}

}

class ValueReport::Visitor : public Types::Visitors::DelegateToBaseVisitor
{
public:
    explicit Visitor(ValueReport const & report) : report_(report) {}

    using DelegateToBaseVisitor::visit;

    void visit(Types::UInt8 const & value) override { result = value.value(); }
    void visit(Types::UInt16 const & value) override { result = value.value(); }
    void visit(Types::UInt32 const & value) override { result = value.value(); }
    void visit(Types::UInt64 const & value) override { result = value.value(); }
    void visit(Types::Int8 const & value) override { result = value.value(); }
    void visit(Types::Int16 const & value) override { result = value.value(); }
    void visit(Types::Int32 const & value) override { result = value.value(); }
    void visit(Types::Int64 const & value) override { result = value.value(); }
    void visit(Types::Boolean const & value) override { result = value.value(); }

    void visit(Types::UTF16String const & value) override { result = narrow(value.value()); }
    void visit(Types::ISO7String const & value) override { result = value.value(); }
    void visit(Types::UTF16 const & value) override
    {
        unsigned short const text[] = {value.value(), 0};
        result = narrow(text);
    }

    void visit(Types::Rational const & value) override
    {
        result = fmt::format("{}/{}", value.numerator(), value.denominator());
    }
    void visit(Types::VersionType const & value) override
    {
        result = fmt::format("{}.{}", value.major(), value.minor());
    }
    void visit(Types::Timestamp const & value) override { result = textOf(value); }
    void visit(Types::ProductVersion const & value) override { result = textOf(value); }
    void visit(Types::RGBALayout const & value) override { result = textOf(value); }
    void visit(Types::J2KPictureComponent const & value) override
    {
        result = {value.ssiz(), value.xrSiz(), value.yrSiz()};
    }

    void visit(Types::LocalTag const & value) override
    {
        result = narrow(value.toString(TextForm::DOTTED_BYTES).c_str());
    }
    void visit(Types::UUID const & value) override { result = Application::textOf(value, TextForm::RFC4122); }
    void visit(Types::UMID32 const & value) override { bytes(value.rawBuffer(), value.size(), ALL_BYTES); }
    void visit(Types::UMID64 const & value) override { bytes(value.rawBuffer(), value.size(), ALL_BYTES); }
    void visit(Types::UniversalLabel const & value) override
    {
        char const * const name = Schema::findLabelName(report_.tables_, value.rawBuffer());
        result = {{"label", Application::textOf(value, TextForm::DOTTED_BYTES)},
                  {"name", name != nullptr ? Json(name) : Json()}};
    }

    void visit(Types::StrongReference const & value) override { reference(value); }
    void visit(Types::WeakReference const & value) override { reference(value); }

    void visit(Types::DataStream const & value) override { bytes(value); }
    void visit(Types::DataValue const & value) override { bytes(value); }
    void visit(Types::Unknown const & value) override { bytes(value); }
    void visit(Types::J2KCodingStyleDefault const & value) override { bytes(value); }
    void visit(Types::J2KQuantisationDefault const & value) override { bytes(value); }

    void visit(Types::Array const & items) override { list(items); }
    void visit(Types::Batch const & items) override { list(items); }

    Json result;

private:
    void bytes(unsigned char const * bytes, std::size_t size, std::size_t limit)
    {
        result = hexText(bytes, size, limit);
    }
    void bytes(Types::ByteSequence const & value)
    {
        bytes(value.value().data(), value.value().size(), report_.longestBytes_);
    }
    void bytes(Types::SimpleDataType const & value)
    {
        bytes(value.rawBuffer(), value.serializedSize(), report_.longestBytes_);
    }

    void reference(Types::Reference const & value)
    {
        std::optional<MetadataTree::Place> const place = report_.tree_.find(value.uuid());
        result = {{"instance", Application::textOf(value.uuid(), TextForm::RFC4122)},
                  {"set", place ? Json(*place) : Json()}};
    }

    void list(Types::Collection const & items)
    {
        Json all = Json::array();
        for (unsigned int i = 0; i < items.size(); ++i)
            all.push_back(report_(items.at(i)));
        result = std::move(all);
    }

    ValueReport const & report_;
};

ValueReport::ValueReport(Schema::Tables const & tables, MetadataTree const & tree, std::size_t longestBytes) :
    tables_(tables), tree_(tree), longestBytes_(longestBytes)
{
}

ValueReport::Json ValueReport::operator()(Types::BaseType const & value) const
{
    Visitor visitor(*this);
    value.accept(visitor);
    return std::move(visitor.result);
}

}}
