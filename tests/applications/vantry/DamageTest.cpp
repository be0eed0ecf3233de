// What comes of damaged files: sound ones are cut anywhere, or a bit of them
// is flipped, and the program and the library are to end in order on each.
//
// Plain runs take some of the cases. With VANTRY_ALL_CASES in the environment
// all are run, which takes minutes for each file.

#include "CommonOptions.h"
#include "Failure.h"
#include "FileReport.h"
#include "MXFIO/ContentStorageProfile.h"
#include "MXFIO/SequentialReader.h"
#include "Options.h"
#include "Output.h"
#include "PlainFilePage.h"
#include "Schema/Dictionaries.h"
#include "UnwrapCommand.h"
#include "support/FFmpeg.h"
#include "support/Samples.h"
#include "support/UseContainer.h"

#include <csignal>
#include <cstring>
#include <map>
#include <random>
#include <set>

#include <unistd.h>

namespace Vantry { namespace Tests { namespace {

using Json = nlohmann::ordered_json;

// Long enough for any file here on a busy machine, under any sanitizer.
unsigned const LONGEST_SECONDS = 60;

// How far from the ends of a file its structure is sought.
UInt64 const ENDS = 8192;

// Tells which case is at work when the process hangs or is ended by a
// sanitizer.
class Watch
{
public:
    explicit Watch(std::string const & text)
    {
        std::snprintf(text_, sizeof(text_), "at work on: %s\n", text.c_str());
        std::signal(SIGABRT, tell);
        std::signal(SIGALRM, tell);
        alarm(LONGEST_SECONDS);
    }
    Watch(Watch const &) = delete;
    Watch & operator=(Watch const &) = delete;
    ~Watch() { alarm(0); }

private:
    static void tell(int number)
    {
        ssize_t const ignored = write(STDERR_FILENO, text_, std::strlen(text_));
        static_cast<void>(ignored);
        std::signal(number, SIG_DFL);
        std::raise(number);
    }

    static char text_[256];
};

char Watch::text_[256];

Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary()
{
    static auto const builtIn = Vantry::Schema::builtInDictionary();
    return builtIn;
}

Application::Output toNobody()
{
    static std::FILE * const nowhere = std::fopen("/dev/null", "w");
    return Application::Output(nowhere);
}

// The form for machines; null when there is no partition.
Json info(Bytes const & bytes)
{
    BytesSource source(bytes);
    auto const report = Application::reportOf("a.mxf", source, Vantry::Schema::builtInTables());
    if (!report)
        return nullptr;

    Application::Output output = toNobody();
    Application::writePlainPage(*report, output);
    return *report;
}

// What the user says to `unwrap`.
class UnwrapOptions : public Application::Options
{
public:
    explicit UnwrapOptions(std::filesystem::path const & folder) : folder_(folder) {}

    void file(std::string & target, char const *) override { target = folder_ / "a.mxf"; }
    void requiredText(char const *, std::string & target, char const *, char const *) override
    {
        target = folder_ / "essence";
    }
    void files(std::vector<std::string> &, char const *, char const *) override {}
    void flag(char const *, bool &, char const *) override {}
    void text(char const *, std::string &, char const *, char const *) override {}
    void number(char const *, std::optional<UInt64> &, char const *, char const *) override {}
    void numbers(char const *, std::vector<unsigned> &, char const *, char const *) override {}

private:
    std::filesystem::path folder_;
};

void unwrap(Bytes const & bytes)
{
    ScratchFolder const scratch;
    scratch.write("a.mxf", bytes);
    UnwrapOptions options(scratch.path());
    Application::UnwrapCommand command;
    command.declareOptions(options);

    Application::CommonOptions common;
    common.quiet = true;
    Application::Output output = toNobody();
    try
    {
        attempt([&] { command.run(common, output); });
    }
    catch (Application::Failure const &)
    {
        // Told to the user.
    }
}

void readByPartitions(Bytes const & bytes)
{
    BytesSource source(bytes);
    MXFIO::Reader2 reader(source, dictionary(), 65536);
    use(reader);
}

void readContainers(Bytes const & bytes)
{
    BytesSource source(bytes);
    MXFIO::Reader2 reader(source, dictionary(), 65536);
    attempt([&] { forEachContainer(reader, [](MXFIO::ContentStorageReader & content) { use(content); }); });
}

void readInOrder(Bytes const & bytes)
{
    BytesSource source(bytes);
    MXFIO::SequentialReader reader(source, dictionary());
    UInt64 left = source.remaining();
    for (bool more = true; more;)
    {
        attempt([&] { more = reader.next(65536); });
        ASSERT_TRUE(!more || source.remaining() < left) << "at offset " << source.absoluteOffset();
        left = source.remaining();
    }
}

// What is done with each damaged file besides `info`. A command of the program
// that reads files joins here.
void (*const JOBS[])(Bytes const &) = {unwrap, readByPartitions, readContainers, readInOrder};

Json examine(Bytes const & bytes)
{
    for (auto const job : JOBS)
        EXPECT_NO_THROW(job(bytes));
    Json report;
    EXPECT_NO_THROW(report = info(bytes));
    return report;
}

struct SoundFile
{
    std::string name;
    std::function<Bytes()> read;
};

void PrintTo(SoundFile const & file, std::ostream * out)
{
    *out << file.name;
}

// Small samples of different patterns, wrappings and indexes; where there are
// none, what ffmpeg makes.
std::vector<SoundFile> soundFiles()
{
    std::set<std::string> const chosen = {"F001_sample.mxf", "F048_8c0c4ebc_mono_sine.mxf",
                                          "F072_rexy_sunbathe_mrx.mxf", "F189_audio1.mxf", "F196_video1.mxf"};
    std::vector<SoundFile> files;
    for (std::filesystem::path const & path : samples())
        if (chosen.count(path.filename().string()) != 0)
            files.push_back({path.filename().string(), [path]
                             {
                                 return readFile(path);
                             }});
    if (!files.empty() || !hasFFmpeg())
        return files;

    for (std::string const & arguments : ffmpegKinds())
        files.push_back({arguments, [arguments]
                         {
                             return readFile(FFmpegFile(arguments).path());
                         }});
    return files;
}

class Damage : public testing::TestWithParam<SoundFile>
{
protected:
    Damage() : sound_(GetParam().read()) {}

    Bytes const & sound() const { return sound_; }

    // Calls `visit` for some of the cases, or all.
    template <class Case, class Visit>
    void forEachChosen(std::vector<Case> const & cases, char const * what, Visit const & visit) const
    {
        std::size_t const step = std::getenv("VANTRY_ALL_CASES") != nullptr ? 1 : 50;
        for (std::size_t i = 0; i < cases.size() && !HasFailure(); i += step)
        {
            std::string const text = GetParam().name + ", " + what + " " + std::to_string(cases[i]);
            SCOPED_TRACE(text);
            Watch const watch(text);
            visit(cases[i]);
        }
    }

    // Lengths to cut the file to, the longest first.
    std::vector<UInt64> cuts() const
    {
        UInt64 const size = sound_.size();
        std::set<UInt64> lengths;
        for (UInt64 i = 0; i < std::min(ENDS, size); ++i)
            lengths.insert({i, size - 1 - i});
        for (UInt64 i = 0; i < 500; ++i)
            lengths.insert(size * i / 500);
        return {lengths.rbegin(), lengths.rend()};
    }

    // Every other one near the ends of the file, where its structure is.
    std::vector<UInt64> bits() const
    {
        std::mt19937 random(1);
        UInt64 const size = sound_.size();
        UInt64 const nearEnd = std::min(ENDS, size);
        std::vector<UInt64> numbers;
        for (unsigned i = 0; i < 2000; ++i)
        {
            UInt64 const reach = i % 2 == 0 ? size : nearEnd;
            UInt64 const start = i % 4 == 1 ? size - nearEnd : 0;
            numbers.push_back(8 * start + random() % (8 * reach));
        }
        return numbers;
    }

private:
    Bytes sound_;
};

// A file that gets shorter never gets more to read, and tells that it is cut.
TEST_P(Damage, OfFilesThatAreCut)
{
    std::map<unsigned, UInt64> readable;
    auto const compare = [&](Json const & report)
    {
        for (Json const & container : report["containers"])
        {
            if (container["readable_edit_units"].is_null())
                continue;
            UInt64 const units = container["readable_edit_units"];
            UInt64 const most = readable.emplace(container["body_sid"], units).first->second;
            EXPECT_LE(units, most) << "body SID " << container["body_sid"];
            readable[container["body_sid"]] = units;
        }
    };

    compare(info(sound()));
    forEachChosen(cuts(), "cut to",
                  [&](UInt64 size)
                  {
                      Json const report = examine(sound().first(size));
                      if (report.is_null())
                          return;
                      compare(report);
                      EXPECT_FALSE(report["warnings"].empty());
                  });
}

TEST_P(Damage, OfSingleBits)
{
    forEachChosen(bits(), "flipped bit",
                  [&](UInt64 bit)
                  {
                      Bytes damaged = sound();
                      damaged[bit / 8] ^= static_cast<unsigned char>(1 << bit % 8);
                      examine(damaged);
                  });
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(Damage);
INSTANTIATE_TEST_SUITE_P(, Damage, testing::ValuesIn(soundFiles()));

}}}
