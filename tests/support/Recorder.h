#pragma once

#include "support/Bytes.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

namespace Vantry { namespace Tests {

/// A process that appends bytes to a file, in pieces of all sizes.
class Recorder
{
public:
    /// \param from  the first byte that isn't in the file yet
    Recorder(std::filesystem::path const & path, Bytes const & bytes, std::size_t from, unsigned int seed) :
        process_(fork())
    {
        if (process_ != 0)
            return;
        record(path, bytes, from, seed);
        _exit(0);
    }
    Recorder(Recorder const &) = delete;
    Recorder & operator=(Recorder const &) = delete;

    ~Recorder()
    {
        if (process_ > 0)
            waitpid(process_, nullptr, 0);
    }

    /// Whether more may come.
    bool isAtWork()
    {
        if (process_ > 0 && waitpid(process_, nullptr, WNOHANG) != 0)
            process_ = -1;
        return process_ > 0;
    }

private:
    static void record(std::filesystem::path const & path, Bytes const & bytes, std::size_t from, unsigned int seed)
    {
        std::mt19937 random(seed);
        std::ofstream file(path, std::ios::binary | std::ios::app);
        while (from < bytes.size())
        {
            std::size_t const size = std::min<std::size_t>(random() % (1 << random() % 13) + 1, bytes.size() - from);
            file.write(reinterpret_cast<char const *>(bytes.data() + from), static_cast<std::streamsize>(size));
            file.flush();
            from += size;
            usleep(200);
        }
    }

    pid_t process_;
};

}}
