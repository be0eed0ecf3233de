#include "PlainFilePage.h"

#include "EditRate.h"
#include "Output.h"
#include "Text.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>

namespace Vantry { namespace Application {

namespace {

using Json = nlohmann::ordered_json;

// What is listed for people; JSON has all.
std::size_t const MOST_PARTITIONS = 24;

std::string textOf(Json const & value)
{
    if (value.is_null())
        return "-";
    return value.is_string() ? value.get<std::string>() : value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// The name of a label, or its bytes; empty for null.
std::string nameOf(Json const & label)
{
    if (!label.is_object())
        return "";
    return textOf(label["name"].is_null() ? label["label"] : label["name"]);
}

Json property(Json const & descriptor, char const * symbol)
{
    return descriptor["properties"].value(symbol, Json());
}

/// Seconds of edit units at a rate such as "25/1"; none when either isn't
/// known.
std::optional<double> secondsOf(Json const & count, Json const & rate)
{
    if (!count.is_number() || !rate.is_string())
        return std::nullopt;
    char * slash = nullptr;
    std::string const text = rate.get<std::string>();
    double const numerator = std::strtod(text.c_str(), &slash);
    double const denominator = *slash == '/' ? std::strtod(slash + 1, nullptr) : 0;
    if (numerator <= 0 || denominator <= 0)
        return std::nullopt;
    return count.get<double>() * denominator / numerator;
}

/// Writes the sections of the page.
class Page
{
public:
    Page(Json const & report, Output & output) : report_(report), output_(output), text_(output.buffer()) {}

    void write()
    {
        head();
        for (Json const & package : report_["packages"])
            this->package(package);
        containers();
        partitions();
        warnings();
    }

private:
    template <class... Values>
    void print(fmt::format_string<Values...> form, Values &&... values)
    {
        appendOneLine(text_, fmt::format(form, std::forward<Values>(values)...));
    }

    void endLine()
    {
        text_.push_back('\n');
        output_.pieceDone();
    }

    template <class... Values>
    void line(fmt::format_string<Values...> form, Values &&... values)
    {
        print(form, std::forward<Values>(values)...);
        endLine();
    }

    void head()
    {
        line("{}", textOf(report_["file"]));
        std::string const pattern = nameOf(report_["operational_pattern"]);
        line("  Pattern   {}, {} bytes{}", pattern, textOf(report_["size"]),
             report_["run_in"] == 0 ? "" : fmt::format(", the first {} a run-in", textOf(report_["run_in"])));
        length();
        start();
        for (Json const & maker : report_["identifications"])
            line("  Made by   {} {} {}, {}", textOf(maker["company"]), textOf(maker["product"]),
                 textOf(maker["version"]), textOf(maker["modified"]));
        Json const & metadata = report_["header_metadata"];
        line("  Metadata  {}, {} sets", textOf(metadata["status"]), textOf(metadata["sets"]));
        std::size_t const faults = report_["warnings"].size();
        if (faults != 0)
            line("  Faults    {}, see the end of this page", faults);
    }

    /// Of the first track of essence.
    void length()
    {
        for (Json const & package : report_["packages"])
            for (Json const & track : package["tracks"])
            {
                bool const isEssence =
                    track["kind"] == "picture" || track["kind"] == "sound" || track["kind"] == "data";
                auto const seconds = secondsOf(track["duration"], track["edit_rate"]);
                if (!isEssence || !seconds)
                    continue;
                line("  Length    {:.3f} s, {} edit units of {} per second", *seconds, textOf(track["duration"]),
                     textOf(track["edit_rate"]));
                return;
            }
    }

    void start()
    {
        for (Json const & package : report_["packages"])
            for (Json const & track : package["tracks"])
                if (!track["start_timecode"].is_null())
                    return line("  Start     {}", textOf(track["start_timecode"]));
    }

    void package(Json const & package)
    {
        endLine();
        std::string const name = textOf(package["name"]);
        std::string kind = textOf(package["kind"]);
        kind.front() = static_cast<char>(kind.front() - 'a' + 'A');
        line("{} package{}{}", kind, name.empty() ? "" : " ", name);
        for (Json const & track : package["tracks"])
            this->track(track, package["descriptors"]);
        for (Json const & descriptor : package["descriptors"])
            if (package["kind"] != "material" && !isShownWithTrack(descriptor, package))
                line("  {:>5}  {}", "", contentOf(descriptor));
    }

    void track(Json const & track, Json const & descriptors)
    {
        print("  {:>5}  {:<11}  {:>11}  {:>8}", textOf(track["id"]), textOf(track["kind"]), textOf(track["edit_rate"]),
              textOf(track["duration"]));
        if (!track["start_timecode"].is_null())
            print("  from {}", textOf(track["start_timecode"]));
        if (track["origin"].is_number() && track["origin"] != 0)
            print("  origin {}", textOf(track["origin"]));
        for (Json const & descriptor : descriptors)
            if (!track["id"].is_null() && descriptor["linked_track"] == track["id"])
                print("  {}", contentOf(descriptor));
        endLine();
    }

    static bool isShownWithTrack(Json const & descriptor, Json const & package)
    {
        return std::any_of(package["tracks"].begin(), package["tracks"].end(),
                           [&](Json const & track)
                           { return !track["id"].is_null() && track["id"] == descriptor["linked_track"]; });
    }

    /// What essence is: its coding, or else its container, and what matters
    /// most of it.
    static std::string contentOf(Json const & descriptor)
    {
        std::string coding = nameOf(property(descriptor, "pictureEssenceCoding"));
        if (coding.empty())
            coding = nameOf(property(descriptor, "soundEssenceCompression"));
        if (coding.empty())
            coding = nameOf(descriptor["essence_container"]);
        std::string text = textOf(descriptor["class"]) + (coding.empty() ? "" : ": " + coding);

        Json const width = property(descriptor, "storedWidth");
        if (!width.is_null())
            text += fmt::format(", {}x{}", textOf(width), textOf(property(descriptor, "storedHeight")));
        Json const sampling = property(descriptor, "audioSamplingRate");
        if (auto const period = secondsOf(1, sampling))
            text += fmt::format(", {:g} Hz", 1 / *period);
        Json const channels = property(descriptor, "channelCount");
        if (!channels.is_null())
            text += fmt::format(", {} channels of {} bits", textOf(channels),
                                textOf(property(descriptor, "quantizationBits")));
        return text;
    }

    void containers()
    {
        if (report_["containers"].empty())
            return;
        endLine();
        line("Essence");
        for (Json const & container : report_["containers"])
        {
            Json const & index = container["index"];
            line("  body SID {}: {} wrapped, {} bytes, {} of {} edit units readable, {} per second",
                 textOf(container["body_sid"]), textOf(container["wrapping"]), textOf(container["size"]),
                 textOf(container["readable_edit_units"]), textOf(container["duration"]),
                 textOf(container["edit_rate"]));
            if (index["kind"] == "none")
                line("    no index");
            else
                line("    index SID {}: {}, {} segments, {} edit units", textOf(container["index_sid"]),
                     textOf(index["kind"]), textOf(index["segments"]), textOf(index["edit_units"]));
        }
    }

    void partitions()
    {
        Json const & all = report_["partitions"];
        endLine();
        line("Partitions");
        for (std::size_t i = 0; i < std::min(all.size(), MOST_PARTITIONS); ++i)
            line("  {:>14}  {:<6}  {:<17}  body SID {}, index SID {}", textOf(all[i]["offset"]), textOf(all[i]["kind"]),
                 textOf(all[i]["status"]), textOf(all[i]["body_sid"]), textOf(all[i]["index_sid"]));
        if (all.size() > MOST_PARTITIONS)
            line("  {:>14}  {} more", "", all.size() - MOST_PARTITIONS);
        line("  {}", report_["random_index_pack"].is_null() ? "no random index pack" : "random index pack");
    }

    void warnings()
    {
        if (report_["warnings"].empty())
            return;
        endLine();
        line("Faults");
        for (Json const & warning : report_["warnings"])
            line("  {}", textOf(warning));
    }

    Json const & report_;
    Output & output_;
    fmt::memory_buffer & text_;
};

}

void writePlainPage(Json const & report, Output & output)
{
    Page(report, output).write();
}

}}
