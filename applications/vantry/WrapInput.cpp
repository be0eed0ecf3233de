#include "WrapInput.h"

#include "Analyzers/DVAnalyzer.h"
#include "Analyzers/JPEG2000Analyzer.h"
#include "Analyzers/MPEG2VideoAnalyzer.h"
#include "Analyzers/WaveAnalyzer.h"
#include "DataIO/BlockHolder.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Exceptions/BaseException.h"
#include "Exceptions/InvalidFormat.h"
#include "Failure.h"
#include "GenericContainer/EditUnit.h"
#include "GenericContainer/S436M/ANCPacketsAnalyzer.h"
#include "GenericContainer/S436M/VBIDataAnalyzer.h"
#include "Text.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace Vantry { namespace Application {

using Analyzers::DVAnalyzer;
using Analyzers::JPEG2000Analyzer;
using Analyzers::MPEG2VideoAnalyzer;
using Analyzers::WaveAnalyzer;
using Labels = GenericContainer::RP224UniversalLabels;
using Source = Templates::SharedPtr<DataIO::SliceSource>;

namespace {

unsigned int const MOST_CHANNELS = 8;

// The length field of an element has three bytes for the number in frame
// wrapping.
UInt64 const LARGEST_ELEMENT = 0xFFFFFF;

[[noreturn]] void refuse(std::string const & file, std::string const & problem)
{
    throw Failure(ExitStatus::FAILED, file, problem);
}

/// An analyzer whose failures name the file that it reads. How long the essence
/// is shows at its end: a duration told ahead of it would be cut down to whole
/// edit units, where the last one is filled up.
template <class Base>
class OfFile : public Base
{
public:
    template <class From>
    OfFile(std::string file, From source, Labels::WrapKind wrapKind) :
        Base(std::move(source), wrapKind), file_(std::move(file)), isFrame_(wrapKind == Labels::FRAME), editUnits_(0)
    {
    }

    bool preload() override
    {
        return named([this] { return Base::preload(); });
    }

    bool nextEditUnit(GenericContainer::EditUnit & unit) override
    {
        bool const isThere = named([&] { return Base::nextEditUnit(unit); });
        UInt64 const size = unit.data.data_size();
        if (isFrame_ && size > LARGEST_ELEMENT)
            refuse(file_, fmt::format("edit unit {} has {} bytes, and an element in frame wrapping takes {} (16 MiB) "
                                      "at most",
                                      editUnits_, size, LARGEST_ELEMENT));
        ++editUnits_;
        return isThere;
    }

    Templates::Rational<int> getDuration() override { return -1; }

private:
    template <class Step>
    bool named(Step step) const
    try
    {
        return step();
    }
    catch (Exceptions::BaseException const & failure)
    {
        refuse(file_, problemOf(failure));
    }

    std::string file_;
    bool isFrame_;
    UInt64 editUnits_;
};

/// Sound that goes on with silence for as long as it is asked.
class EndlessWave : public OfFile<WaveAnalyzer>
{
public:
    using OfFile<WaveAnalyzer>::OfFile;

    bool done() override { return false; }

    bool nextEditUnit(GenericContainer::EditUnit & unit) override
    {
        if (OfFile<WaveAnalyzer>::nextEditUnit(unit))
            return true;
        unit.duration = Templates::Rational<int>(1) / editRate();
        fillNullEssence(unit);
        unit.valid = true;
        return true;
    }
};

/// Elements of SMPTE 436M, and as many without lines or packets behind them as
/// are asked for.
class ElementSource : public DataIO::SliceSource
{
public:
    explicit ElementSource(Source elements) :
        elements_(std::move(elements)),
        none_(DataIO::Memory::MemoryBlockFactory::instance().create(COUNT_SIZE)),
        isNoneNext_(false)
    {
        std::fill_n(none_.block()->data(), COUNT_SIZE, 0);
    }

    void addNone() { isNoneNext_ = true; }

    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override
    {
        if (!std::exchange(isNoneNext_, false))
            return elements_->read(howMuch);
        return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(none_.block(), 0, COUNT_SIZE));
    }

    UInt64 absoluteOffset() const override { return elements_->absoluteOffset(); }
    bool endOfStream() const override { return !isNoneNext_ && elements_->endOfStream(); }
    UInt64 skip(UInt64 howMuch) override { return elements_->skip(howMuch); }

private:
    static constexpr UInt64 COUNT_SIZE = 2;

    Source elements_;
    DataIO::BlockHolder none_;
    bool isNoneNext_;
};

/// Tells where an element is that isn't whole.
template <class Base>
class ElementsOf : public Base
{
public:
    ElementsOf(Source elements, Labels::WrapKind) : Base(std::move(elements)), offset_(0) {}

    bool nextEditUnit(GenericContainer::EditUnit & unit) override
    try
    {
        bool const isThere = Base::nextEditUnit(unit);
        offset_ += unit.data.data_size();
        return isThere;
    }
    catch (Exceptions::InvalidFormat const &)
    {
        throw Exceptions::InvalidFormat(fmt::format("The element at byte {} isn't whole", offset_).c_str(), __FILE__,
                                        __LINE__);
    }

private:
    UInt64 offset_;
};

/// Elements that go on with nothing in them for as long as they are asked for.
template <class Base>
class EndlessElements : public OfFile<ElementsOf<Base>>
{
public:
    EndlessElements(std::string file, Templates::SharedPtr<ElementSource> elements) :
        OfFile<ElementsOf<Base>>(std::move(file), Source(elements), Labels::FRAME), elements_(std::move(elements))
    {
    }

    bool done() override { return false; }

    bool nextEditUnit(GenericContainer::EditUnit & unit) override
    {
        if (OfFile<ElementsOf<Base>>::nextEditUnit(unit))
            return true;
        elements_->addNone();
        return OfFile<ElementsOf<Base>>::nextEditUnit(unit);
    }

private:
    Templates::SharedPtr<ElementSource> elements_;
};

}

WrapInput::WrapInput(FoundEssence found, TakenAs takenAs) : found_(std::move(found))
{
    open(takenAs);
}

void WrapInput::open(TakenAs takenAs)
{
    switch (found_.kind)
    {
    case EssenceKind::WAVE:
    case EssenceKind::S302M:
        return openSound(takenAs);
    case EssenceKind::ANCILLARY_PACKETS:
        return openElements<GenericContainer::S436M::ANCPacketsAnalyzer>(takenAs);
    case EssenceKind::VBI_LINES:
        return openElements<GenericContainer::S436M::VBIDataAnalyzer>(takenAs);
    default:
        return openPictures(takenAs == TakenAs::CLIP);
    }
}

char const * WrapInput::kind() const
{
    if (isPicture())
        return "picture";
    return itemOf(found_.kind) == Item::SOUND ? "sound" : "data";
}

void WrapInput::openPictures(bool isClip)
{
    Labels::WrapKind const wrapKind = isClip ? Labels::CLIP : Labels::FRAME;
    if (found_.kind == EssenceKind::JPEG_2000)
        analyzer_ = Analyzer(new OfFile<JPEG2000Analyzer>(file(), picturesIn(file()), wrapKind));
    else if (found_.kind == EssenceKind::DV)
        analyzer_ = Analyzer(new OfFile<DVAnalyzer>(file(), openEssence(found_), wrapKind));
    else
        analyzer_ = Analyzer(new OfFile<MPEG2VideoAnalyzer>(file(), openEssence(found_), wrapKind));
    if (!analyzer_->preload())
        refuse(file(), "holds no pictures");
    isLeft_ = [analyzer = analyzer_.get()]
    {
        return !analyzer->done();
    };
}

void WrapInput::openSound(TakenAs takenAs)
{
    Labels::WrapKind const wrapKind = takenAs == TakenAs::CLIP ? Labels::CLIP : Labels::FRAME;
    std::unique_ptr<WaveAnalyzer> opened;
    if (takenAs == TakenAs::FRAMES_BESIDE_PICTURES)
        opened = std::make_unique<EndlessWave>(file(), openEssence(found_), wrapKind);
    else
        opened = std::make_unique<OfFile<WaveAnalyzer>>(file(), openEssence(found_), wrapKind);

    WaveAnalyzer * const wave = opened.get();
    analyzer_ = Analyzer(opened.release());
    if (!wave->preload() || wave->WaveAnalyzer::done())
        refuse(file(), "holds no sound");
    if (wave->channelsInStream() > MOST_CHANNELS)
        refuse(file(),
               fmt::format("has {} channels, and a track takes {} at most", wave->channelsInStream(), MOST_CHANNELS));
    wave->fillLastEditUnit(true); // an index counts in whole ones
    isLeft_ = [wave]
    {
        return !wave->WaveAnalyzer::done();
    };
}

template <class Base>
void WrapInput::openElements(TakenAs takenAs)
{
    if (takenAs == TakenAs::CLIP)
        throw Failure(ExitStatus::WRONG_USAGE, file(), "holds data for each frame, which aren't wrapped as a clip");

    Templates::SharedPtr<ElementSource> const elements(new ElementSource(openEssence(found_)));
    std::unique_ptr<ElementsOf<Base>> opened;
    if (takenAs == TakenAs::FRAMES_BESIDE_PICTURES)
        opened = std::make_unique<EndlessElements<Base>>(file(), elements);
    else
        opened = std::make_unique<OfFile<ElementsOf<Base>>>(file(), Source(elements), Labels::FRAME);

    ElementsOf<Base> * const data = opened.get();
    analyzer_ = Analyzer(opened.release());
    isLeft_ = [data]
    {
        return !data->Base::done();
    };
}

std::optional<Templates::Rational<int>> WrapInput::rate() const
{
    if (found_.kind != EssenceKind::MPEG2_VIDEO && found_.kind != EssenceKind::DV)
        return std::nullopt;
    return analyzer_->editRate();
}

}}
