#include "PlainFilePage.h"

#include "EditRate.h"
#include "Output.h"
#include "Text.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <utility>
#include <vector>

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

/// "1 segment", "2 segments".
std::string counted(Json const & count, char const * what)
{
    return fmt::format("{} {}{}", textOf(count), what, count == 1 ? "" : "s");
}

/// Hours, minutes and seconds.
std::string clockText(double seconds)
{
    double const MINUTE = 60;
    double const HOUR = 60 * MINUTE;
    double const inHour = std::fmod(seconds, HOUR);
    return fmt::format("{:02.0f}:{:02.0f}:{:06.3f}", std::floor(seconds / HOUR), std::floor(inHour / MINUTE),
                       std::fmod(inHour, MINUTE));
}

/// "closed, complete".
std::string statusText(Json const & status)
{
    std::string text = textOf(status);
    std::size_t const joint = text.find('_');
    if (joint != std::string::npos)
        text.replace(joint, 1, text.compare(0, joint, "generic") == 0 ? " " : ", ");
    return text;
}

/// What is wanted first of a container: how much of it is there.
std::string editUnitsText(Json const & container)
{
    Json const & readable = container["readable_edit_units"];
    Json const & claimed = container["duration"];
    std::string text;
    if (readable.is_null())
        text = claimed.is_null() ? "edit units unknown" : counted(claimed, "edit unit") + ", readable ones unknown";
    else if (claimed.is_null())
        text = counted(readable, "edit unit") + " readable";
    else
        text = fmt::format("{} of {} readable", textOf(readable), counted(claimed, "edit unit"));
    return container["edit_rate"].is_null() ? text : text + ", at " + textOf(container["edit_rate"]);
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
        line("  Pattern   {}", nameOf(report_["operational_pattern"]));
        line("  Size      {} bytes{}", textOf(report_["size"]),
             report_["run_in"] == 0 ? "" : fmt::format(", the first {} a run-in", textOf(report_["run_in"])));
        length();
        start();
        for (Json const & maker : report_["identifications"])
            line("  Made by   {} {} {}{}", textOf(maker["company"]), textOf(maker["product"]), textOf(maker["version"]),
                 isDate(maker["modified"]) ? ", " + textOf(maker["modified"]) : "");
        Json const & metadata = report_["header_metadata"];
        line("  Metadata  {}, {}", statusText(metadata["status"]), counted(metadata["sets"], "set"));
        std::size_t const faults = report_["warnings"].size();
        if (faults != 0)
            line("  Faults    {}, see the end of this page", faults);
    }

    /// Many writers leave it 0.
    static bool isDate(Json const & modified)
    {
        return modified.is_string() && modified.get<std::string>().compare(0, 4, "0000") != 0;
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
                line("  Length    {}, {} at {}", clockText(*seconds), counted(track["duration"], "edit unit"),
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
        if (!package["tracks"].empty())
            line("  {:>5}  {:<11}  {:>11}  {:>8}", "track", "kind", "edit rate", "duration");
        for (Json const & track : package["tracks"])
            this->track(track, package["descriptors"]);
        otherDescriptors(package);
    }

    /// Those that belong to no track, of equal ones how many there are.
    void otherDescriptors(Json const & package)
    {
        std::vector<std::pair<std::string, int>> contents;
        for (Json const & descriptor : package["descriptors"])
            if (package["kind"] != "material" && !isShownWithTrack(descriptor, package))
            {
                std::string const content = contentOf(descriptor);
                if (contents.empty() || contents.back().first != content)
                    contents.emplace_back(content, 0);
                ++contents.back().second;
            }
        for (auto const & [content, count] : contents)
            line("  {:>5}  {}{}", "", count == 1 ? "" : fmt::format("{} x ", count), content);
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
            text += ", " + counted(channels, "channel");
        Json const bits = property(descriptor, "quantizationBits");
        if (!bits.is_null())
            text += fmt::format(" of {} bits", textOf(bits));
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
            line("  body SID {}: {} wrapped, {} bytes, {}", textOf(container["body_sid"]),
                 container["wrapping"] == "other" ? "otherwise" : textOf(container["wrapping"]),
                 textOf(container["size"]), editUnitsText(container));
            if (index["kind"] == "none")
                line("    no index");
            else
                line("    index SID {}: edit units of {}, {}{}", textOf(container["index_sid"]),
                     index["kind"] == "cbe" ? "one size" : "any size", counted(index["segments"], "segment"),
                     index["edit_units"].is_null() ? "" : " for " + textOf(index["edit_units"]));
        }
    }

    void partitions()
    {
        Json const & all = report_["partitions"];
        endLine();
        line("Partitions");
        for (std::size_t i = 0; i < std::min(all.size(), MOST_PARTITIONS); ++i)
            line("  {:>14}  {:<6}  {:<18}  body SID {}, index SID {}", textOf(all[i]["offset"]), textOf(all[i]["kind"]),
                 statusText(all[i]["status"]), textOf(all[i]["body_sid"]), textOf(all[i]["index_sid"]));
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
