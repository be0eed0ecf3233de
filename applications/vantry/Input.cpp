#include "Input.h"

#include "DataIO/File/FileDataSource.h"
#include "Failure.h"
#include "Platform/Text.h"
#include "StreamSource.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace Vantry { namespace Application {

namespace {

// Large packets are passed over with a seek each: a larger buffer would be
// filled for the sake of the few bytes at its start.
int const FILE_BUFFER_SIZE = 16384;

Templates::wstring wide(std::string const & name)
{
    return Platform::stringToWstring(name.c_str());
}

class FileInput : public Input
{
public:
    explicit FileInput(std::string const & name) : source_(wide(name).c_str(), FILE_BUFFER_SIZE) {}

    DataIO::DataSource & source() override { return source_; }
    void stepBack(UInt64 howMuch) override { source_.seek(source_.absoluteOffset() - howMuch); }

private:
    DataIO::File::FileDataSource source_;
};

class StreamInput : public Input
{
public:
    explicit StreamInput(std::FILE * stream) : source_(stream) {}

    DataIO::DataSource & source() override { return source_; }
    void stepBack(UInt64 howMuch) override { source_.stepBack(howMuch); }

private:
    StreamSource source_;
};

bool isPlainFile(std::string const & name)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(name, ignored);
}

/// Opens a file that is there and is no folder.
std::FILE * openReadable(std::string const & name)
{
    std::FILE * const file = std::fopen(name.c_str(), "rb");
    if (file == nullptr)
        throw Failure(ExitStatus::FAILED, name, std::string("can't be opened: ") + std::strerror(errno));

    std::error_code ignored;
    if (std::filesystem::is_directory(name, ignored))
    {
        std::fclose(file);
        throw Failure(ExitStatus::FAILED, name, "is a directory");
    }
    return file;
}

}

std::unique_ptr<Input> Input::open(std::string const & name)
{
    if (name == "-")
        return std::make_unique<StreamInput>(stdin);

    // A named pipe loses its writer when it is opened twice, so what is no
    // plain file is read as it is found.
    bool const plain = isPlainFile(name);
    std::FILE * const file = openReadable(name);
    if (!plain)
        return std::make_unique<StreamInput>(file);

    std::fclose(file);
    return std::make_unique<FileInput>(name);
}

void requireReadable(std::string const & name)
{
    std::fclose(openReadable(name));
}

std::unique_ptr<DataIO::RandomAccessDataSource> openRandomAccess(std::string const & name)
{
    if (name == "-")
        throw Failure(ExitStatus::WRONG_USAGE, name, "this command needs a file, standard input is read only once");
    // A named pipe without a writer would keep who opens it waiting.
    std::error_code ignored;
    if (std::filesystem::is_other(name, ignored))
        throw Failure(ExitStatus::FAILED, name, "is no plain file, and this command reads here and there");
    requireReadable(name);
    return std::make_unique<DataIO::File::FileDataSource>(wide(name).c_str(), FILE_BUFFER_SIZE);
}

}}
