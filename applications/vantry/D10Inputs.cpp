#include "D10Inputs.h"

#include "Analyzers/D10PictureAnalyzer.h"
#include "Analyzers/EightChannelSoundAnalyzer.h"
#include "Exceptions/BaseException.h"
#include "Failure.h"
#include "Text.h"

#include <algorithm>

namespace Vantry { namespace Application {

using Analyzers::D10PictureAnalyzer;
using Analyzers::EightChannelSoundAnalyzer;
using Analyzers::WaveSound;

namespace {

[[noreturn]] void refuse(std::string const & file, std::string const & problem)
{
    throw Failure(ExitStatus::FAILED, file, problem);
}

/// What a step says is of a file.
template <class Step>
auto named(std::string const & file, Step step)
try
{
    return step();
}
catch (Exceptions::BaseException const & failure)
{
    refuse(file, problemOf(failure));
}

class PicturesOfFile : public D10PictureAnalyzer
{
public:
    explicit PicturesOfFile(FoundEssence const & found) : D10PictureAnalyzer(openEssence(found)), file_(found.file) {}

    bool preload() override
    {
        return named(file_, [this] { return D10PictureAnalyzer::preload(); });
    }

    bool nextEditUnit(GenericContainer::EditUnit & unit) override
    {
        return named(file_, [&] { return D10PictureAnalyzer::nextEditUnit(unit); });
    }

private:
    std::string file_;
};

class SoundOfFile : public WaveSound
{
public:
    explicit SoundOfFile(FoundEssence const & found) : WaveSound(openEssence(found)), file_(found.file) {}

    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override
    {
        return named(file_, [&] { return WaveSound::read(howMuch); });
    }

private:
    std::string file_;
};

[[noreturn]] void refuseMixture(FoundEssence const & found)
{
    throw Failure(ExitStatus::WRONG_USAGE, found.file,
                  "doesn't go with --d10, which takes one stream of MPEG-2 video and waves beside it");
}

void checkKinds(std::vector<FoundEssence> const & essence)
{
    for (FoundEssence const & found : essence)
    {
        bool const isFirst = &found == &essence.front();
        if (found.kind != (isFirst ? EssenceKind::MPEG2_VIDEO : EssenceKind::WAVE))
            refuseMixture(found);
    }
    if (essence.size() < 2)
        throw Failure(ExitStatus::WRONG_USAGE, essence.front().file, "is alone, and --d10 takes sound beside pictures");
}

std::unique_ptr<WrapInput> openPictures(FoundEssence const & found)
{
    WrapInput::Analyzer const analyzer(new PicturesOfFile(found));
    if (!analyzer->preload())
        refuse(found.file, "holds no pictures");
    return std::make_unique<WrapInput>(found, analyzer, [pictures = analyzer.get()] { return !pictures->done(); });
}

Templates::SharedPtr<WaveSound> openSound(FoundEssence const & found, EightChannelSoundAnalyzer & all)
{
    return named(found.file,
                 [&]
                 {
                     Templates::SharedPtr<WaveSound> sound(new SoundOfFile(found));
                     if (!sound->preload() || !sound->isLeft())
                         refuse(found.file, "holds no sound");
                     all.add(sound);
                     return sound;
                 });
}

}

std::vector<std::unique_ptr<WrapInput>> openD10Inputs(std::vector<FoundEssence> const & essence)
{
    checkKinds(essence);

    std::vector<std::unique_ptr<WrapInput>> inputs;
    inputs.push_back(openPictures(essence.front()));
    auto * const sound = new EightChannelSoundAnalyzer(inputs.front()->analyzer()->universalLabel());
    WrapInput::Analyzer const analyzer(sound);
    for (auto found = essence.begin() + 1; found != essence.end(); ++found)
    {
        Templates::SharedPtr<WaveSound> const one = openSound(*found, *sound);
        inputs.push_back(std::make_unique<WrapInput>(*found, analyzer, [one] { return one->isLeft(); }));
    }
    if (sound->isPairOpen())
        refuse(essence.back().file, "has one channel and no other for a pair, and D-10 takes channels in pairs");
    return inputs;
}

}}
