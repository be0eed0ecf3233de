#include "Essence/Converters/PCMToWave.h"

#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/Memory/MemoryDataSink.h"
#include "Essence/Wave/WaveHeader.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace Essence { namespace Converters {

namespace {

Templates::auto_ptr<DataIO::Slice> headerOf(WaveHeaderStructure const & structure)
{
    DataIO::Memory::MemoryDataSink sink;
    Wave::writeRiffHeader(sink, Wave::UNKNOWN_SIZE);
    Wave::writeFormatChunk(sink, structure);
    Wave::writeChunkHeader(sink, "data", Wave::UNKNOWN_SIZE);

    UInt64 const size = sink.serializedSize();
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(size);
    std::copy_n(sink.rawBuffer(), size, block.block()->data());
    return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, size));
}

}

PCMToWave::PCMToWave(Templates::SharedPtr<DataIO::SliceSource> source, WaveHeaderStructure const & structure) :
    source_(std::move(source)), header_(headerOf(structure)), headerSize_(header_->size())
{
}

PCMToWave::~PCMToWave() = default;

Templates::auto_ptr<DataIO::Slice> PCMToWave::read(UInt64 howMuch)
{
    return header_.get() != nullptr ? std::move(header_) : source_->read(howMuch);
}

UInt64 PCMToWave::absoluteOffset() const
{
    return source_->absoluteOffset() + headerSize_;
}

bool PCMToWave::endOfStream() const
{
    return header_.get() == nullptr && source_->endOfStream();
}

UInt64 PCMToWave::skip(UInt64 howMuch)
{
    if (header_.get() == nullptr)
        return source_->skip(howMuch);

    UInt64 const ofHeader = std::min(howMuch, header_->size());
    header_->cropBegin(ofHeader);
    if (header_->size() == 0)
        header_.reset();
    return ofHeader < howMuch ? ofHeader + source_->skip(howMuch - ofHeader) : ofHeader;
}

}}}
