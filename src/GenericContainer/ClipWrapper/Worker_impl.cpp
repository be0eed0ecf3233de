#include "GenericContainer/ClipWrapper/Worker_impl.h"

#include "GenericContainer/EditUnit.h"
#include "MXFIO/FutureUpdater.h"
#include "Metadata/PartitionMetadata.h"
#include "Utils/Fill.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace GenericContainer { namespace ClipWrapper {

namespace {

unsigned char const LENGTH_SIZE = 8;

// Key and length field, of clips and of fill.
unsigned int const KL_LENGTH = 16 + LENGTH_SIZE;

}

Worker_impl::Worker_impl(ContainerData const & data, ClipInput input) :
    BaseWorkerImpl(data, IndexSegmentInfo::CLIP_WRAPPING, KL_LENGTH),
    input_(std::move(input)),
    current_(entries().begin()),
    bufferedBytes_(0),
    keyWritten_(false)
{
    setupTimecodeTrack(-1);
}

Worker_impl::~Worker_impl() = default;

bool Worker_impl::next(DataIO::Chain & chain, bool & complete, Templates::SharedPtr<MXFIO::FutureUpdater> & updater,
                       Templates::Rational<Int64> & duration)
{
    if (current_ == entries().end() || isFinished())
    {
        finish();
        complete = true;
        updater.reset();
        duration = 0;
        return false;
    }

    DataIO::Chain part;
    bool const goesOn = BaseWorkerImpl::next(part, complete, updater, duration);
    openClip(chain, updater);
    complete = false;
    if (input_.buffer.get() != nullptr)
        return nextBuffered(chain, complete);

    chain.push_back(part);
    if (!current_->analyzer->done())
        return goesOn;
    complete = true;
    return closeAnalyzedClip(chain);
}

// Writes the key of the clip, once.
void Worker_impl::openClip(DataIO::Chain & chain, Templates::SharedPtr<MXFIO::FutureUpdater> & updater)
{
    if (input_.size != 0)
    {
        if (!keyWritten_)
            chain.push_back(createKLSlice(*current_, input_.size, LENGTH_SIZE));
        keyWritten_ = true;
    }
    else if (pending_.get() == nullptr)
    {
        pending_ = Templates::SharedPtr<KLVLengthUpdater>(new KLVLengthUpdater);
        chain.push_back(createKLSlice(*current_, 0, LENGTH_SIZE));
        updater = pending_;
    }
}

// Leaves the length with whoever has the updater.
void Worker_impl::setLength(UInt64 length)
{
    if (pending_.get() != nullptr)
        pending_->slice(createKLSlice(*current_, length, LENGTH_SIZE));
    pending_.reset();
}

void Worker_impl::fillBehindClip(UInt64 length, DataIO::Chain & chain)
{
    if (kagSize() > 1)
        createFiller(Utils::alignBytes(kagSize(), KL_LENGTH + length, KL_LENGTH), chain);
}

bool Worker_impl::closeAnalyzedClip(DataIO::Chain & chain)
{
    BaseWorkerImpl::finalize(*current_);
    setLength(streamOffset());
    fillBehindClip(streamOffset(), chain);
    restartStream();
    ++current_;
    return true;
}

// The bytes of the analyzers are dropped; those in the buffer make the clip.
bool Worker_impl::nextBuffered(DataIO::Chain & chain, bool & complete)
{
    drainBuffer(chain);
    if (!areAnalyzersDone())
        return true;

    if (!isDemultiplexed())
    {
        input_.demultiplexer->read(input_.blockSize);
        drainBuffer(chain);
        if (!isDemultiplexed())
            return true;
    }
    complete = true;
    setLength(bufferedBytes_);
    fillBehindClip(bufferedBytes_, chain);
    finish();
    return false;
}

void Worker_impl::drainBuffer(DataIO::Chain & chain)
{
    while (input_.buffer->accessible() != 0)
    {
        Templates::auto_ptr<DataIO::Slice> slice = input_.buffer->read(input_.buffer->accessible());
        bufferedBytes_ += slice->size();
        chain.push_back(slice);
    }
}

void Worker_impl::doNextContentPackage(DataIO::Chain & chain, Seconds & duration)
{
    if (input_.buffer.get() != nullptr)
    {
        // What remains is in the demultiplexer alone.
        if (!areAnalyzersDone())
            BaseWorkerImpl::doNextContentPackage(chain, duration);
        return;
    }
    if (isFinished() || current_ == entries().end())
    {
        finish();
        return;
    }

    prepareNewEntry();
    DataIO::Chain part;
    if (!readEditUnit(*current_, part, duration))
        return;
    appendIndexEntry(part.data_size());
    chain.push_back(part);
    updateContentInfo();
}

// Reads an edit unit and tells the index. Unlike in content packages, the edit
// unit counts before the index hears of it.
bool Worker_impl::readEditUnit(AnalyzerEntry & entry, DataIO::Chain & chain, Seconds & duration)
{
    index().processIndexEntryTemporalOffset(editUnits(), entry.needsExtendedIndex, entry.temporalOffset, entry.position,
                                            packageEnd(), data().packageRate);
    EditUnit unit;
    if (!entry.analyzer->nextEditUnit(unit))
        return false;
    checkTimeCode(entry, unit);
    if (!unit.valid)
        return false;

    countEditUnit();
    chain.push_back(unit.data);
    bool const startsSlice = entry.entryByteCount == 0 || entries().size() > 1;
    index().processAnalyzerIndexEntrySliceOffset(startsSlice, 0, entry.entryByteCount);
    index().processAnalyzerIndexEntry(editUnits(), entry.analyzer->containsTemporalDependencies(), unit.flags,
                                      unit.temporalOffset);
    duration = Seconds(unit.duration.numerator(), unit.duration.denominator());
    return true;
}

bool Worker_impl::isDemultiplexed() const
{
    return input_.demultiplexer.get() == nullptr || input_.demultiplexer->endOfStream();
}

bool Worker_impl::areAnalyzersDone() const
{
    Entries const & analyzers = data().analyzers;
    return std::all_of(analyzers.begin(), analyzers.end(),
                       [](AnalyzerEntry const & entry) { return entry.analyzer->done(); });
}

bool Worker_impl::done() const
{
    if (!isFinished() && areAnalyzersDone() && isDemultiplexed())
        finish();
    return isFinished();
}

void Worker_impl::finalize()
{
    BaseWorkerImpl::finalize();
    if (current_ != entries().end())
        setLength(input_.buffer.get() != nullptr ? bufferedBytes_ : streamOffset());
}

}}}
