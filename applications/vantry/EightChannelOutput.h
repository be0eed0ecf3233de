#pragma once

#include "EssenceOutput.h"

#include <functional>
#include <vector>

namespace Vantry { namespace Application {

/// Takes the eight-channel elements of SMPTE 331M apart and writes the channels
/// that are valid as one wave file.
///
/// Which these are, the first element says. Sound is written as it stands in
/// the words, though it may be marked as none for ears: data in place of PCM
/// are to survive.
class EightChannelOutput : public EssenceOutput
{
public:
    /// Makes the wave file, when its channels are known.
    using Maker = std::function<std::unique_ptr<EssenceOutput>(SoundFormat const & format)>;

    /// \param claimed  what the metadata say: samples are cut to these bits,
    ///                 and channels count where no element has valid ones
    EightChannelOutput(SoundFormat const & claimed, Maker maker);
    ~EightChannelOutput() override;

    void append(unsigned char const * bytes, std::size_t size) override;
    void endElement() override;
    void flush() override;
    void complete() override;
    void publish() override;
    std::string name() const override;
    UInt64 size() const override;
    std::string fault() const override { return fault_; }

private:
    class Demux;

    void takeApart(unsigned int samples);
    void open(unsigned int validChannels);
    void write(std::vector<unsigned char> const & samples);
    void note(std::string const & fault);

    SoundFormat format_;
    Maker maker_;
    std::unique_ptr<Demux> demux_;
    std::unique_ptr<EssenceOutput> wave_;
    std::vector<unsigned int> channels_; // those that are written
    std::vector<unsigned char> element_; // what came of it
    std::vector<unsigned char> samples_; // of all channels, as they come
    std::vector<unsigned char> pending_; // what the wave file has on loan
    std::string fault_;
};

}}
