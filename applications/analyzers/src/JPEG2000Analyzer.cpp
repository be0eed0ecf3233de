#include "Analyzers/JPEG2000Analyzer.h"

#include "DataIO/BufferSliceSource.h"
#include "DataIO/File/FileSliceSource.h"
#include "DataIO/SliceReader.h"
#include "DataIO/SyncWordFinder.h"
#include "Exceptions/BaseException.h"
#include "Exceptions/IOError.h"
#include "Exceptions/InvalidFormat.h"
#include "GenericContainer/EditUnit.h"
#include "JPEG2000Description.h"
#include "Platform/Text.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>
#include <tuple>
#include <utility>

namespace Vantry { namespace Analyzers {

namespace {

namespace fs = std::filesystem;

using DataIO::Slice;
using Essence::JPEG2000::CodestreamHeader;
using Essence::JPEG2000::ImageTileSize;
using Rate = Templates::Rational<int>;
using Templates::auto_ptr;

// Start and end of a codestream.
unsigned char const START[] = {0xFF, 0x4F, 0xFF, 0x51};
unsigned char const END[] = {0xFF, 0xD9};

// SMPTE 422M.
ElementCoding const CODING = {0x15,
                              0x08,
                              {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x07, //
                               0x0D, 0x01, 0x03, 0x01, 0x02, 0x0C, 0x01, 0x00},
                              14};

[[noreturn]] void refuse(std::string const & file, std::string const & what)
{
    throw Exceptions::InvalidFormat((file + ": " + what).c_str(), __FILE__, __LINE__);
}

bool isDigit(char c)
{
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

// The digits at the start, those of leading zeros aside.
std::pair<std::string, std::string> splitNumber(std::string const & text)
{
    auto const end = std::find_if_not(text.begin(), text.end(), isDigit);
    auto const first = std::find_if(text.begin(), end, [](char c) { return c != '0'; });
    return {std::string(first, end), std::string(end, text.end())};
}

// Whether a name comes ahead of another, numbers by their values.
bool isAhead(std::string left, std::string right)
{
    for (;;)
    {
        auto const [ours, theirs] = std::mismatch(left.begin(), left.end(), right.begin(), right.end(),
                                                  [](char a, char b) { return a == b && !isDigit(a); });
        if (ours == left.end() || theirs == right.end() || !isDigit(*ours) || !isDigit(*theirs))
            return std::lexicographical_compare(ours, left.end(), theirs, right.end());

        auto const [ourNumber, ourRest] = splitNumber(std::string(ours, left.end()));
        auto const [theirNumber, theirRest] = splitNumber(std::string(theirs, right.end()));
        if (ourNumber != theirNumber)
            return std::make_pair(ourNumber.size(), ourNumber) < std::make_pair(theirNumber.size(), theirNumber);
        left = ourRest;
        right = theirRest;
    }
}

bool isSame(ImageTileSize const & left, ImageTileSize const & right)
{
    auto const fields = [](ImageTileSize const & size)
    {
        return std::tie(size.xsiz, size.ysiz, size.xOsiz, size.yOsiz, size.csiz);
    };
    return fields(left) == fields(right) &&
           std::equal(left.components.begin(), left.components.end(), right.components.begin(),
                      [](auto const & a, auto const & b)
                      { return std::tie(a.ssiz, a.xRsiz, a.yRsiz) == std::tie(b.ssiz, b.xRsiz, b.yRsiz); });
}

// The bytes of a file, on one block.
auto_ptr<Slice> contentOf(std::string const & file)
{
    std::error_code error;
    UInt64 const size = fs::file_size(file, error);
    if (error)
        throw Exceptions::IOError((file + ": " + error.message()).c_str(), __FILE__, __LINE__);
    if (size == 0)
        return auto_ptr<Slice>(new Slice);
    return DataIO::File::FileSliceSource(Platform::stringToWstring(file.c_str()).c_str(), size, size).read(size);
}

bool isCodestream(Slice const & content)
{
    return content.size() >= sizeof(START) && std::equal(std::begin(START), std::end(START), content.begin());
}

CodestreamHeader headerOf(std::string const & file, Slice const & content)
{
    auto * const queue = new DataIO::BufferSliceSource;
    DataIO::SliceReader reader{Templates::SharedPtr<DataIO::SliceSource>(queue)};
    queue->write(auto_ptr<Slice>(new Slice(content)));
    queue->close();
    DataIO::SyncWordFinder finder(reader, END[0], END[0]);
    CodestreamHeader header;
    std::string reason;
    try
    {
        readHeader(header, finder, reader);
    }
    catch (Exceptions::BaseException const & failure)
    {
        reason = Platform::wstringToString(failure.message()).c_str();
    }

    ImageTileSize const & size = header.imageTileSize;
    bool const isComplete = header.state == Essence::JPEG2000::STATE_TILE_DATA && !header.invalid && size.csiz != 0 &&
                            size.xsiz > size.xOsiz && size.ysiz > size.yOsiz && header.codingStyleDefault.lcod != 0 &&
                            header.quantisationDefault.lqcd != 0;
    if (!isComplete)
        refuse(file, "the header of the codestream is wrong up to byte " + std::to_string(reader.absoluteOffset()) +
                         (reason.empty() ? "" : ", " + reason));
    return header;
}

void checkEnd(std::string const & file, Slice const & content)
{
    if (content.size() < sizeof(END) || !std::equal(std::begin(END), std::end(END), content.end() - sizeof(END)))
        refuse(file, "the codestream is cut off at byte " + std::to_string(content.size()));
}

}

class JPEG2000Analyzer::Impl
{
public:
    explicit Impl(std::vector<std::string> paths) : files(std::move(paths)) {}

    bool load()
    {
        if (isLoaded || files.empty())
            return isLoaded;
        auto_ptr<Slice> const content = contentOf(files.front());
        if (!isCodestream(*content))
            return false;
        first = headerOf(files.front(), *content);
        isLoaded = true;
        return true;
    }

    auto_ptr<Slice> nextPicture()
    {
        std::string const & file = files[next];
        auto_ptr<Slice> content = contentOf(file);
        if (!isCodestream(*content))
            refuse(file, "is no JPEG 2000 codestream");
        checkEnd(file, *content);
        if (!isSame(headerOf(file, *content).imageTileSize, first.imageTileSize))
            refuse(file, "the picture has another size or other components than the first");
        ++next;
        return content;
    }

    std::vector<std::string> const files;
    std::size_t next = 0;
    CodestreamHeader first;

private:
    bool isLoaded = false;
};

std::vector<std::string> JPEG2000Analyzer::filesIn(std::string const & folder)
try
{
    std::vector<std::string> names;
    for (fs::directory_entry const & entry : fs::directory_iterator(folder))
        if (entry.is_regular_file() && entry.path().filename().string().front() != '.')
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end(), isAhead);
    for (std::string & name : names)
        name = (fs::path(folder) / name).string();
    return names;
}
catch (fs::filesystem_error const & error)
{
    throw Exceptions::IOError((folder + ": " + error.code().message()).c_str(), __FILE__, __LINE__);
}

JPEG2000Analyzer::JPEG2000Analyzer(std::vector<std::string> files, Labels::WrapKind wrapKind) :
    ElementAnalyzer(CODING, wrapKind), impl_(std::make_unique<Impl>(std::move(files)))
{
}

JPEG2000Analyzer::~JPEG2000Analyzer() = default;

bool JPEG2000Analyzer::preload()
{
    return impl_->load();
}

bool JPEG2000Analyzer::nextEditUnit(GenericContainer::EditUnit & unit)
{
    unit.valid = false;
    if (!preload() || done())
        return false;
    unit.data.push_back(impl_->nextPicture());
    unit.duration = Rate(editRate().denominator(), editRate().numerator());
    unit.valid = true;
    return true;
}

bool JPEG2000Analyzer::done()
{
    return impl_->next == impl_->files.size();
}

Rate JPEG2000Analyzer::durationOfStream()
{
    return editRate().numerator() > 0 ? Rate(static_cast<int>(impl_->files.size())) / editRate() : Rate(-1);
}

void JPEG2000Analyzer::describe(EssenceMetadata & metadata)
{
    describeCodestream(metadata, impl_->first, universalLabel(), editRate());
}

void JPEG2000Analyzer::complete(EssenceMetadata & metadata)
{
    metadata.finish(impl_->next, impl_->next);
}

}}
