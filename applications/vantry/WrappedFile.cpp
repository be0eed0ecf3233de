#include "WrappedFile.h"

#include "Failure.h"
#include "GenericContainer/ClipWrapper/Wrapper.h"
#include "GenericContainer/Multiplexer/Mux.h"
#include "GenericContainer/Multiplexer/SystemItemGenerator.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Types/Length.h"
#include "Types/UInt32.h"
#include "Types/UniversalLabel.h"
#include "WrappedPackages.h"

#include <algorithm>
#include <fmt/format.h>

namespace Vantry { namespace Application {

using GenericContainer::Source;
using MXFIO::PullCreator;
using Templates::auto_ptr;

namespace {

// Room in which header metadata can be changed later.
UInt64 const SPARE_SPACE = 4096;
UInt64 const ANY_SIZE = 0;

UInt64 const SIZE_UNKNOWN = 0;

// Of a container with essence of several kinds.
unsigned char const SEVERAL_MAPPINGS[16] = {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x03,
                                            0x0D, 0x01, 0x03, 0x01, 0x02, 0x7F, 0x01, 0x00};

Types::UniversalLabel containerLabel(WrapSettings const & settings, WrappedFile::Inputs const & inputs)
{
    return inputs.size() == 1 || settings.isD10 ? inputs.front()->analyzer()->universalLabel()
                                                : Types::UniversalLabel(SEVERAL_MAPPINGS);
}

std::unique_ptr<PatternBuilder>
makeBuilder(WrapSettings const & settings, PatternBuilder::Dictionary const & dictionary, Types::Timestamp const & date)
{
    return settings.isAtom ? PatternBuilder::forOPAtom(dictionary, date) : PatternBuilder::forOP1a(dictionary, date);
}

/// A time code of drop frame is for these alone, which the container supposes
/// at all such rates.
bool canHaveTimeCode(Templates::Rational<int> const & rate, unsigned char base)
{
    return rate.denominator() == 1 || base == 24 || base == 30 || base == 60;
}

/// Where the library takes the time code of the essence, or none, ours is put
/// in place afterwards.
template <class Builder>
void askForTimeCode(Builder & builder, Templates::Rational<int> const & rate)
{
    if (canHaveTimeCode(rate, *timeCodeBase(rate)))
        builder.defaultStartTimecode(true, 0, 0, 0, 0);
    builder.suppressTimecodeDiscontinuities(true);
}

}

WrappedFile::WrappedFile(WrapSettings const & settings, PatternBuilder::Dictionary const & dictionary,
                         Templates::Rational<int> const & rate, Inputs inputs, std::filesystem::path const & target,
                         bool force) :
    settings_(settings),
    rate_(rate),
    inputs_(std::move(inputs)),
    delivery_(target, force),
    sink_(delivery_.draft(), target),
    date_(dateOfNow(settings.isDeterministic)),
    builder_(makeBuilder(settings, dictionary, date_)),
    material_(nullptr),
    source_(nullptr),
    place_(0)
{
}

WrappedFile::~WrappedFile() = default;

void WrappedFile::start(std::optional<Utils::TimeCode> const & ofSet)
{
    auto_ptr<Source> container = makeContainer();
    if (settings_.indexPlace == IndexPlace::HEADER && !container->isCBE())
        throw Failure(ExitStatus::WRONG_USAGE, target().string(),
                      "--index-in header needs edit units of one size, and these differ");

    Utils::TimeCode const start = startTimeCode();
    source_ = &container->sourcePackage();
    setDates(*source_, date_);
    setStartTimeCode(*source_, start);
    numberTimeCodeTrack(*source_);

    material_ = &builder_->createMaterialPackage(ofSet.value_or(start), rate_);
    material_->addSourcePackage(0, *source_);
    numberTracks(materialPackage());
    if (!settings_.name.empty())
        setName(materialPackage(), settings_.name);
    builder_->essencePackage(*source_);
    builder_->update();
    makeCreator(container);
}

std::vector<WrapInput::Analyzer> WrappedFile::analyzers() const
{
    std::vector<WrapInput::Analyzer> analyzers;
    for (auto const & input : inputs_)
        if (analyzers.empty() || analyzers.back().get() != input->analyzer().get())
            analyzers.push_back(input->analyzer());
    return analyzers;
}

auto_ptr<Source> WrappedFile::makeContainer()
{
    return settings_.isClip || settings_.isAtom ? makeClip() : makeFrames();
}

auto_ptr<Source> WrappedFile::makeFrames()
{
    // Where the index needs it, units that differ by a sample get one size.
    bool const fill = settings_.indexPlace == IndexPlace::HEADER || settings_.isD10;
    bool const hasPictures =
        std::any_of(inputs_.begin(), inputs_.end(), [](auto const & input) { return input->isPicture(); });

    GenericContainer::Multiplexer::Mux mux(builder_->metadata(), containerLabel(settings_, inputs_), rate_, nullptr);
    mux.kagSize(settings_.kagSize);
    mux.multiplexAllEssence(!hasPictures);
    askForTimeCode(mux, rate_);
    if (settings_.isD10)
        mux.addAnalyzer(WrapInput::Analyzer(new GenericContainer::Multiplexer::SystemItemGenerator(
                            rate_, startTimeCode(), containerLabel(settings_, inputs_))),
                        fill, 0);
    for (WrapInput::Analyzer const & analyzer : analyzers())
        mux.addAnalyzer(analyzer, fill, 0);
    return mux.commit();
}

auto_ptr<Source> WrappedFile::makeClip()
{
    GenericContainer::ClipWrapper::Wrapper wrapper(builder_->metadata(), containerLabel(settings_, inputs_), rate_, {},
                                                   SIZE_UNKNOWN);
    wrapper.kagSize(settings_.kagSize);
    askForTimeCode(wrapper, rate_);
    wrapper.addAnalyzer(inputs_.front()->analyzer());
    return wrapper.commit();
}

Utils::TimeCode WrappedFile::startTimeCode() const
{
    unsigned char const base = *timeCodeBase(rate_);
    if (settings_.timeCode)
        return settings_.timeCode->at(base);
    Utils::TimeCode const own = inputs_.front()->analyzer()->currentTimeCode();
    return own.isDefined() && own.frameRate() == base ? own : Utils::TimeCode(base);
}

void WrappedFile::makeCreator(auto_ptr<Source> container)
{
    using namespace MXFIO;
    bool const inHeader = settings_.indexPlace == IndexPlace::HEADER;
    bool const atEnd = settings_.indexPlace == IndexPlace::END;

    creator_ = std::make_unique<Creator>(builder_->metadata(), sink_, SPARE_SPACE, ANY_SIZE);
    creator_->nonEssenceKAGSize(settings_.kagSize);
    creator_->headerPartitionHasEssence(false);
    creator_->useFirstContainerForIndexTableGenerationOnHeader(inHeader);
    creator_->masterEditUnitsPerPartition(settings_.editUnitsPerPartition);
    creator_->writeRIP(settings_.hasRIP);
    creator_->addEssenceContainer(container, atEnd ? INDEX_NONE : INDEX_FOLLOWING,
                                  inHeader ? INDEX_NONE : INDEX_FOLLOWING, false, INDEX_AUTOMATIC);
}

bool WrappedFile::writeUnit()
{
    DataIO::Chain unit;
    bool const isFooter = creator_->status() == PullCreator::PullFooter;
    if (isFooter)
        complete();
    PullCreator::Status const next = creator_->nextUnit(isFooter, unit);
    sink_.append(unit);
    return next != PullCreator::PullDone;
}

void WrappedFile::complete()
{
    builder_->update();
}

void WrappedFile::finish()
{
    sink_.flush();
    creator_->finishWork(sink_);
    if (!creator_->updatePartitions(sink_, true))
        throw Failure(ExitStatus::FAILED, target().string(), "the metadata have outgrown their room");
    sink_.close();
}

UInt64 WrappedFile::editUnits() const
{
    Types::Length const * const duration = essenceTrack(*source_).sequence()->duration();
    return static_cast<UInt64>(duration != nullptr ? std::max<Int64>(duration->value(), 0) : 0);
}

unsigned int WrappedFile::trackID(std::size_t input) const
{
    std::vector<WrapInput::Analyzer> const all = analyzers();
    auto const own =
        std::find_if(all.begin(), all.end(),
                     [&](auto const & analyzer) { return analyzer.get() == inputs_[input]->analyzer().get(); });
    auto const place = static_cast<unsigned int>(own - all.begin());
    return materialPackage().track(place_ + place + 1)->trackID()->value();
}

}}
