// Lists the packets of an MXF file: where each begins, its key, and how many
// bytes its value has.

#include <Vantry/DataIO/File/FileDataSource.h>
#include <Vantry/Exceptions/BaseException.h>
#include <Vantry/Exceptions/NotEnoughData.h>
#include <Vantry/KLV/Packet.h>
#include <Vantry/KLV/Reader.h>
#include <Vantry/Platform/Text.h>

#include <cstdio>

using namespace Vantry;

namespace {

void print(KLV::Packet const & packet)
{
    std::printf("%12llu  ", static_cast<unsigned long long>(packet.keyAbsoluteOffset()));
    for (int i = 0; i < packet.key().size(); ++i)
        std::printf("%02x%s", packet.key()[i], i % 4 == 3 ? " " : "");
    std::printf(" %12llu\n", static_cast<unsigned long long>(packet.length()));
}

void listPackets(DataIO::DataSource & source)
{
    UInt64 const MAX_BYTES_TO_SKIP = 65536;

    KLV::Reader reader(source);
    while (!source.endOfStream())
    {
        UInt64 skipped = 0;
        auto const packet = reader.nextKLV(skipped, MAX_BYTES_TO_SKIP);
        if (skipped > 0)
            std::printf("              %llu bytes that are no packet\n", static_cast<unsigned long long>(skipped));
        print(*packet);
    }
}

}

int main(int argc, char ** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: list-packets FILE\n");
        return 2;
    }

    try
    {
        int const BUFFER_SIZE = 65536;
        DataIO::File::FileDataSource file(Platform::stringToWstring(argv[1]).c_str(), BUFFER_SIZE);
        listPackets(file);
        return 0;
    }
    catch (Exceptions::NotEnoughData const &)
    {
        std::fprintf(stderr, "the file ends within a packet\n");
        return 1;
    }
    catch (Exceptions::BaseException const & failure)
    {
        std::fprintf(stderr, "%s\n", Platform::wstringToString(failure.what()).c_str());
        return 1;
    }
}
