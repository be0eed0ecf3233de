#pragma once

#include "DataIO/Chain.h"
#include "Essence/Converters/S331MMuxHelpers/PCMWaveReader.h"

#include <optional>
#include <string>

namespace Vantry { namespace Analyzers {

/// A wave stream of PCM that knows how much sound it has.
class WaveStream : public Essence::Converters::S331MMuxHelpers::PCMWaveReader
{
public:
    using PCMWaveReader::PCMWaveReader;

    /// Reads up to the format.
    ///
    /// \return false when the stream is no wave
    /// \throws Exceptions::InvalidFormat for a wave of anything but PCM with 1
    ///         to 32 bits, and one that ends in its format.
    bool preload() override;

    /// Goes to the sound, once preloaded.
    ///
    /// \throws Exceptions::InvalidFormat when there is none.
    void goToSound();

    /// Whole blocks in bytes, as the header claims; unknown for a stream whose
    /// writer couldn't go back.
    std::optional<UInt64> length() const;

    /// Whether all sound was taken.
    bool isDone() const;

    /// Some writers leave it open how many bits carry sound.
    unsigned int soundBits() const;

    /// Where the reader stands in the stream as a whole.
    std::string position() { return "byte " + std::to_string(reader().absoluteOffset()); }

    /// Appends up to so many samples of all channels, fewer at the end, and
    /// tells how many.
    ///
    /// \throws Exceptions::InvalidFormat when the stream ends ahead of where
    ///         its header says.
    UInt64 takeSamples(UInt64 samples, DataIO::Chain & data);

    /// How many samples after midnight the sound begins, where the stream tells
    /// that ahead of it.
    std::optional<UInt64> timeReference() const { return timeReference_; }

    void handleFormatChunk(UInt64 length) override;
    void handleBroadcastExtensionChunk(UInt64 length) override;
    void decodePCMFormat(Essence::Wave::FormatPCMChunk const & format) override;
    void handleDataChunkBegin(UInt64 length) override { length_ = length; }

private:
    void checkFormat();
    UInt64 take(UInt64 size, DataIO::Chain & chain);

    UInt64 length_ = 0;
    std::optional<UInt64> timeReference_;
};

}}
