// Takes the first essence container of an MXF file apart in one pass: the bytes
// of each element go to a file of their own, PREFIX and the track number. One
// thread does it, or one for each element.

#include <Vantry/DataIO/File/FileDataSource.h>
#include <Vantry/Exceptions/BaseException.h>
#include <Vantry/GenericContainer/Demultiplexer.h>
#include <Vantry/GenericContainer/ItemOutput.h>
#include <Vantry/MXFIO/ContentStorageReader.h>
#include <Vantry/MXFIO/Partition.h>
#include <Vantry/MXFIO/Reader2.h>
#include <Vantry/Metadata/PartitionMetadata.h>
#include <Vantry/Metadata/Structural/ContentStorage.h>
#include <Vantry/Metadata/Structural/EssenceContainerData.h>
#include <Vantry/Metadata/Structural/Preface.h>
#include <Vantry/Metadata/Structural/PrefaceHelpers.h>
#include <Vantry/Platform/Text.h>
#include <Vantry/Schema/Dictionaries.h>

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <exception>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

using namespace Vantry;

namespace {

UInt64 const READ_SIZE = 262144;
UInt64 const MOST_CACHED = 16 << 20;

// An element and the file that its bytes go to.
class Track
{
public:
    Track(std::string const & prefix, unsigned int number, Templates::SharedPtr<GenericContainer::ItemOutput> output) :
        number_(number), output_(output), file_(prefix + name() + ".bin", std::ios::binary | std::ios::trunc)
    {
    }

    // Takes what waits in the output and, where nothing does, some more; false
    // at the end.
    bool takeSome()
    {
        do
        {
            auto const slice = output_->read(READ_SIZE);
            file_.write(reinterpret_cast<char const *>(slice->begin()), static_cast<std::streamsize>(slice->size()));
            bytes_ += slice->size();
        } while (output_->currentCachedSize() > 0);
        return !output_->endOfStream();
    }

    // Other tracks needn't wait for one whose output has gone.
    void takeAll()
    {
        try
        {
            while (takeSome())
                ;
        }
        catch (...)
        {
            failure_ = std::current_exception();
        }
        output_.reset();
    }

    // Tells what there was, or what went wrong.
    void finish()
    {
        if (failure_)
            std::rethrow_exception(failure_);
        if (!file_.flush())
        {
            std::fprintf(stderr, "can't write the file of track %s\n", name().c_str());
            std::exit(1);
        }
        std::printf("track %s  %llu bytes\n", name().c_str(), static_cast<unsigned long long>(bytes_));
    }

private:
    std::string name() const
    {
        char text[9];
        std::snprintf(text, sizeof text, "%08x", number_);
        return text;
    }

    unsigned int number_;
    Templates::SharedPtr<GenericContainer::ItemOutput> output_;
    std::ofstream file_;
    UInt64 bytes_ = 0;
    std::exception_ptr failure_;
};

void takeInTurns(std::deque<Track> & tracks)
{
    for (bool isMore = true; isMore;)
    {
        isMore = false;
        for (Track & track : tracks)
            isMore = track.takeSome() || isMore;
    }
}

void takeOnThreads(std::deque<Track> & tracks)
{
    std::vector<std::thread> threads;
    for (Track & track : tracks)
        threads.emplace_back(&Track::takeAll, &track);
    for (std::thread & thread : threads)
        thread.join();
}

void demultiplex(MXFIO::ContentStorageReader & container, std::string const & prefix, bool onThreads)
{
    using namespace GenericContainer;
    Demultiplexer demultiplexer(container, MOST_CACHED, onThreads ? WAIT_AT_CACHE_LIMIT : FAIL_AT_CACHE_LIMIT);

    std::deque<Track> tracks;
    for (unsigned int const number : container.elements())
        tracks.emplace_back(prefix, number, demultiplexer.output(number));

    if (onThreads)
        takeOnThreads(tracks);
    else
        takeInTurns(tracks);
    for (Track & track : tracks)
        track.finish();
}

void demultiplexFile(char const * path, std::string const & prefix, bool onThreads)
{
    int const BUFFER_SIZE = 65536;
    UInt64 const PARTITION_SEARCH_LIMIT = 65536;
    DataIO::File::FileDataSource file(Platform::stringToWstring(path).c_str(), BUFFER_SIZE);
    MXFIO::Reader2 reader(file, Schema::builtInDictionary(), PARTITION_SEARCH_LIMIT);
    auto const metadata = reader.firstPartitionWithFinalMetadata()->metadata();

    auto const * const storage = Metadata::Structural::findPreface(*metadata).contentStorage();
    if (storage == nullptr || storage->essenceContainerDataCount() == 0)
    {
        std::fprintf(stderr, "the file has no essence container\n");
        std::exit(1);
    }
    bool const LOAD_RIP = true;
    bool const COMPUTE_SIZE = false;
    MXFIO::ContentStorageReader container(reader, *storage->essenceContainerData(0), LOAD_RIP, COMPUTE_SIZE, {});
    demultiplex(container, prefix, onThreads);
}

}

int main(int argc, char ** argv)
{
    bool const onThreads = argc == 4 && std::string(argv[3]) == "--threads";
    if (argc != 3 && !onThreads)
    {
        std::fprintf(stderr, "usage: demultiplex FILE PREFIX [--threads]\n");
        return 2;
    }

    try
    {
        demultiplexFile(argv[1], argv[2], onThreads);
        return 0;
    }
    catch (Exceptions::BaseException const & failure)
    {
        std::fprintf(stderr, "%s\n", Platform::wstringToString(failure.what()).c_str());
        return 1;
    }
}
