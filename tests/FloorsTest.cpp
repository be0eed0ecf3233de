// Holds the includes of the tree against its floors: what stands on one floor
// knows nothing of the floors above. CONTRIBUTING.md shows the list.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

// A place in include/, protected/ and src/: a module with all below it, or a
// single class. `reach` is the highest floor that it may use beside itself.
struct Room
{
    std::string path;
    int floor;
    int reach;
};

std::vector<Room> const ROOMS = {
    {"Platform", 1, 1},
    {"Exceptions", 1, 1},
    {"Templates", 1, 1},
    {"Utils/Text", 1, 1},
    {"Utils/TimeCode", 1, 1},
    {"Utils/TimeCodeExtended", 1, 1},
    {"Utils/Calendar", 1, 1},
    {"Utils/ModifiedJulianDate", 1, 1},
    {"Utils/Time", 1, 1},
    {"DataIO", 2, 2},
    {"Initializer", 2, 2},
    {"LibrarySingleton", 2, 2},
    {"LoadNotification", 2, 2},
    {"ByteCoders", 3, 3},
    {"KLV", 3, 3},
    {"Types", 3, 3},
    {"Version", 3, 3},
    {"Utils", 3, 3},
    {"Packs", 4, 3},
    {"MetaMetadata", 4, 3},
    {"IndexTables", 4, 3},
    {"Metadata", 5, 5},
    {"GenericContainer", 6, 6},
    {"GenericStream", 6, 6},
    {"MXFIO", 6, 6},
    {"Essence", 6, 3},
    {"OPBuilders", 7, 5},
};

// The deepest room that holds a path such as "DataIO/File/FileDataSource.h".
Room const * roomOf(fs::path path)
{
    for (path.replace_extension(); !path.empty(); path = path.parent_path())
        for (Room const & room : ROOMS)
            if (room.path == path.generic_string())
                return &room;
    return nullptr;
}

struct Include
{
    std::string from;
    std::string to;
};

// Judges includes by the headers that there are, each by its path below the
// root of the tree.
class Floors
{
public:
    explicit Floors(std::set<std::string> headers) : headers_(std::move(headers)) {}

    // What is wrong with an include, or nothing.
    std::string fault(Include const & include) const
    {
        fs::path const from(include.from);
        std::string const tree = from.begin()->string();
        if (include.to.find("..") != std::string::npos)
            return "a path that climbs";
        if (tree == "applications")
            return isHeader("protected", include.to) ? "an application sees public headers only" : "";
        if (tree == "framework")
            return isHeader("include", include.to) || isHeader("protected", include.to)
                       ? "the framework knows nothing of the library"
                       : "";
        return faultInLibrary(tree, from.lexically_relative(tree), include.to);
    }

private:
    bool isHeader(std::string const & tree, std::string const & path) const
    {
        return headers_.count(tree + "/" + path) != 0;
    }

    std::string faultInLibrary(std::string const & tree, fs::path const & from, std::string const & to) const
    {
        static std::regex const STANDARD("[a-z0-9_]+|cxxabi\\.h");
        static std::regex const SYSTEM("[a-z0-9_/]+\\.h");

        Room const * const user = roomOf(from);
        if (!user)
            return "the including file stands in no room";
        if (std::regex_match(to, STANDARD))
            return "";
        if (std::regex_match(to, SYSTEM))
            return user->path == "Platform" ? "" : "only Platform touches the system";
        if (to.rfind("Quorvan/Framework/", 0) == 0)
            return tree == "src" ? "" : "headers don't show the framework";

        Room const * const used = roomOf(to);
        if (!used || (!isHeader("include", to) && !isHeader("protected", to)))
            return "no such header in a room";
        if (tree == "include" && !isHeader("include", to))
            return "a public header needs one that isn't installed";
        if (used != user && used->floor > user->reach)
            return "floor " + std::to_string(used->floor) + " is out of reach";
        return "";
    }

    std::set<std::string> headers_;
};

// Every C++ file below these folders of the tree, by its path below the root.
std::set<std::string> filesBelow(fs::path const & root, std::initializer_list<char const *> folders)
{
    std::set<std::string> files;
    for (char const * folder : folders)
        for (fs::directory_entry const & entry : fs::recursive_directory_iterator(root / folder))
            if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
                files.insert(entry.path().lexically_relative(root).generic_string());
    return files;
}

std::vector<Include> includesOf(fs::path const & root, std::string const & file)
{
    static std::regex const INCLUDE("\\s*#\\s*include\\s*[<\"]([^>\"]+)[>\"].*");

    std::vector<Include> includes;
    std::ifstream in(root / file);
    std::smatch match;
    for (std::string line; std::getline(in, line);)
        if (std::regex_match(line, match, INCLUDE))
            includes.push_back({file, match[1]});
    return includes;
}

TEST(Floors, MadeUpIncludesAreJudged)
{
    Floors const floors({"include/KLV/Key.h", "include/Packs/Pack.h", "include/IndexTables/Entry.h",
                         "include/Metadata/Set.h", "include/Utils/Text.h", "include/Utils/Fill.h",
                         "protected/KLV/Window.h", "include/Cellar/Box.h", "include/MXFIO/Reader.h"});

    struct Case
    {
        Include include;
        char const * fault;
    };
    Case const CASES[] = {
        {{"src/Packs/Pack.cpp", "KLV/Key.h"}, ""},
        {{"src/KLV/Key.cpp", "Packs/Pack.h"}, "floor 4 is out of reach"},
        {{"include/Packs/Pack.h", "IndexTables/Entry.h"}, "floor 4 is out of reach"},
        {{"src/Platform/Clock.cpp", "Utils/Fill.h"}, "floor 3 is out of reach"},
        {{"include/KLV/Key.h", "KLV/Window.h"}, "a public header needs one that isn't installed"},
        {{"src/KLV/Key.cpp", "Cellar/Box.h"}, "no such header in a room"},
        {{"src/Cellar/Box.cpp", "KLV/Key.h"}, "the including file stands in no room"},
        {{"src/KLV/Key.cpp", "../tests/support/Bytes.h"}, "a path that climbs"},
        {{"src/KLV/Key.cpp", "sys/stat.h"}, "only Platform touches the system"},
        {{"include/KLV/Key.h", "Quorvan/Framework/Framework.h"}, "headers don't show the framework"},
        {{"applications/vantry/Dump.cpp", "KLV/Window.h"}, "an application sees public headers only"},
        {{"framework/src/Framework.cpp", "KLV/Key.h"}, "the framework knows nothing of the library"},
    };
    for (Case const & c : CASES)
        EXPECT_EQ(floors.fault(c.include), c.fault) << c.include.from << " includes " << c.include.to;
}

TEST(Floors, TheTreeKeepsThem)
{
    fs::path const root(VANTRY_SOURCE_TREE);
    Floors const floors(filesBelow(root, {"include", "protected"}));

    std::size_t judged = 0;
    for (std::string const & file : filesBelow(root, {"include", "protected", "src", "applications", "framework"}))
        for (Include const & include : includesOf(root, file))
        {
            EXPECT_EQ(floors.fault(include), "") << include.from << " includes " << include.to;
            ++judged;
        }
    EXPECT_GT(judged, 100u);
}

}
