#pragma once

#include "DataIO/SliceReader.h"
#include "DataIO/SliceSource.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace Essence { namespace Wave {

/// Walks the chunks of a RIFF WAVE stream and gives the bytes of its data
/// chunk as a stream of their own, uncopied.
///
///     "RIFF" size "WAVE"              12 bytes; all numbers are little-endian
///     id length value                 8 bytes ahead of each value
///
/// Zero bytes between chunks are passed over. A length of 0xFFFFFFFF stands
/// for a stream whose end was not known when it was written. RF64 (ITU-R
/// BS.2088) is read too: the length of its data chunk comes from "ds64".
///
/// Derived classes hear of chunks through the handlers, which may read the
/// value, or part of it, from `reader()`. What they leave is skipped.
class VANTRY_EXPORT WaveReader : public DataIO::SliceSource
{
public:
    enum State : int
    {
        STATE_INITIAL = 0,
        STATE_BETWEEN_CHUNKS = 1,
        STATE_INVALID = 2,
        STATE_IN_DATA = 3,
        STATE_END_OF_STREAM = 4
    };

    /// Reads nothing yet.
    ///
    /// \throws Exceptions::BadAlloc.
    explicit WaveReader(Templates::SharedPtr<DataIO::SliceSource> source);
    WaveReader(WaveReader const &) = delete;
    WaveReader & operator=(WaveReader const &) = delete;
    ~WaveReader() override;

    /// The next bytes of the data chunk, up to `size`; goes to the first data
    /// chunk if need be. Empty behind that chunk, and for a stream that is no
    /// wave.
    ///
    /// \throws Exceptions::IOError when the medium fails, and what handlers
    ///         throw.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 size) override;

    /// How many bytes of data chunks were read and skipped.
    UInt64 absoluteOffset() const override;

    /// Whether the wave stream as a whole has ended.
    bool endOfStream() const override;

    /// Passes over up to `size` bytes of the data chunk, none behind it.
    UInt64 skip(UInt64 size) override;

    /// A "fmt " chunk comes, `length` bytes long as it claims.
    virtual void handleFormatChunk(UInt64 length);

    /// A "bext" chunk comes (EBU Tech 3285).
    virtual void handleBroadcastExtensionChunk(UInt64 length);

    /// The data chunk begins; 0xFFFFFFFF for a length that is not known.
    virtual void handleDataChunkBegin(UInt64 length);

    /// Another chunk comes; `id` has four characters.
    virtual void handleUnknownChunk(Templates::basic_string<unsigned char> const & id, UInt64 length);

    /// Reads the head of the stream, once, and tells whether it is a wave.
    virtual bool preload();

    /// Goes behind the present data chunk or to the next chunk, whatever it
    /// is, and returns the state there.
    ///
    /// \throws Exceptions::IOError when the medium fails, and what handlers
    ///         throw.
    virtual State nextChunk();

    /// Goes to the next data chunk and returns the state there.
    State gotoNextDataChunk();

    State state() const noexcept { return state_; }

protected:
    /// Where handlers read the value of their chunk.
    DataIO::SliceReader & reader() noexcept { return reader_; }

private:
    struct ChunkHeader;

    bool loadHeader();
    bool loadChunkHeader(ChunkHeader & header);
    void loadLongSizes(UInt64 length);
    void handleChunk(ChunkHeader const & header);
    void skipData();
    bool hasData();
    UInt64 dataLeft() const noexcept;
    UInt64 withinData(UInt64 size) const noexcept;
    void took(UInt64 size) noexcept;

    DataIO::SliceReader reader_;
    State state_;
    bool isLong_;
    UInt64 riffSize_;
    UInt64 longDataSize_;
    UInt64 dataLength_;
    UInt64 dataTaken_;
    UInt64 bytesRead_;
};

}}}
