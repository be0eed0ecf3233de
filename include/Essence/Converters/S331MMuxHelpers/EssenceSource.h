#pragma once

#include "DataIO/Chain.h"
#include "DataIO/SliceReader.h"
#include "Essence/Converters/S331MMuxHelpers/BasicSource.h"

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

/// An input that is a stream. It keeps what was fetched of it as it came,
/// uncopied, in blocks of one sample of all its channels.
class VANTRY_EXPORT EssenceSource : public BasicSource
{
public:
    ~EssenceSource() override;

    void prepare(unsigned short count) override;
    bool endOfStream() const override;
    unsigned char * writeSamples(unsigned char * out, unsigned short count) override;

    /// Buffers samples, about `count`; false where the stream gave none, or
    /// ended too early.
    virtual bool fetch(unsigned short count) = 0;

    virtual DataIO::SliceReader & source() = 0;
    virtual DataIO::SliceReader const & source() const = 0;

    /// Puts the words of `count` blocks, which lie one behind the other, to
    /// `out` as `writeSamples` does.
    virtual void encode(unsigned char * out, unsigned char const * blocks, UInt64 count) = 0;

protected:
    explicit EssenceSource(unsigned char firstChannel) noexcept;

    /// Sets the bytes of a block, which are not 0.
    void blockSize(UInt64 bytes) noexcept { blockSize_ = bytes; }
    UInt64 blockSize() const noexcept { return blockSize_; }

    /// Keeps the whole blocks of a slice and returns how many they are.
    UInt64 buffer(Templates::auto_ptr<DataIO::Slice> slice);

private:
    UInt64 encodeRun(unsigned char * out, UInt64 count);

    UInt64 blockSize_;
    UInt64 buffered_;
    DataIO::Chain chain_;
};

}}}}
