#pragma once

#include "DataIO/DataSink.h"
#include "DataIO/Slice.h"

namespace Vantry {
namespace KLV {
class Value;
}

namespace Essence { namespace Wave {

/// Writes a wave stream to a sink. The sink is lent and outlives the writer.
///
/// A stream that can't be rewound keeps the size 0xFFFFFFFF in both places,
/// which readers take for unknown. Where the sink can be, the caller puts it
/// back to the start and calls `updateHeader`.
class VANTRY_EXPORT WaveWriter
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Writes nothing yet. `bitsPerSample` counts those that carry sound, up
    /// to 32; a sample takes whole bytes. `formatTag` is stored for samples of
    /// up to 16 bits, wider ones make the header an extensible one.
    WaveWriter(DataIO::DataSink & sink, unsigned short bitsPerSample, unsigned int samplesPerSecond,
               unsigned short channels, unsigned short formatTag);
    WaveWriter(WaveWriter const &) = delete;
    WaveWriter & operator=(WaveWriter const &) = delete;
    virtual ~WaveWriter();

    /// Bytes that the RIFF size counts beside the samples.
    virtual unsigned int headerSize() const;

    /// Writes chunks between the format and the samples; none of itself.
    virtual void writeAdditionalChunks();

    /// Writes all that stands ahead of the samples, once. A `dataLength` of 0,
    /// or one that leaves no room for the RIFF size, stands for unknown.
    ///
    /// \throws Exceptions::InvalidValue "Number of bits per sample is not
    ///         supported" for more than 32; Exceptions::IOError when the sink
    ///         fails.
    void writeHeader(unsigned int dataLength);

    /// Writes samples as they are. As all that write, it writes a header of
    /// unknown length first where there is none.
    void write(DataIO::Slice const & slice);

    /// Writes the low bytes of one sample of one channel.
    void writeSample(unsigned int value);

    /// Writes all of a packet's value.
    ///
    /// \throws Exceptions::IOError when the source or the sink fails.
    void handleData(KLV::Value & value);

    /// Writes the header anew, with the length of what was written, to a sink
    /// that the caller put to its start.
    void updateHeader();

protected:
    /// Writes the identifier, of four characters, and the length of a chunk;
    /// ahead of them a zero where the sink stands at an odd position.
    void writeChunkHeader(char const * id, unsigned int length);

    DataIO::DataSink & sink() noexcept { return sink_; }

private:
    void writeData(unsigned char const * bytes, UInt64 size);
    unsigned int frameSize() const;

    DataIO::DataSink & sink_;
    unsigned short bitsPerSample_;
    unsigned int samplesPerSecond_;
    unsigned short channels_;
    unsigned short formatTag_;
    bool headerIsWritten_;
    UInt64 dataWritten_;
};

}}
}
