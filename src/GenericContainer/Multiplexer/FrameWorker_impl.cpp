#include "GenericContainer/Multiplexer/FrameWorker_impl.h"

#include <algorithm>

namespace Vantry { namespace GenericContainer { namespace Multiplexer {

namespace {

// Key and length field, of elements and of fill.
unsigned int const KL_LENGTH = 20;

Templates::Rational<int> const UNKNOWN_DURATION(-1);

Templates::Rational<int> shortestDuration(Templates::list<AnalyzerEntry> const & entries)
{
    Templates::Rational<int> shortest = UNKNOWN_DURATION;
    for (AnalyzerEntry const & entry : entries)
    {
        Templates::Rational<int> const duration = entry.analyzer->getDuration();
        if (duration != UNKNOWN_DURATION)
            shortest = shortest == UNKNOWN_DURATION ? duration : std::min(shortest, duration);
    }
    return shortest;
}

}

FrameWorker_impl::FrameWorker_impl(ContainerData const & data) :
    BaseWorkerImpl(data, IndexSegmentInfo::FRAME_WRAPPING, KL_LENGTH)
{
    setupTimecodeTrack(shortestDuration(entries()));
    updateTrackOrigins();
}

FrameWorker_impl::~FrameWorker_impl() = default;

}}}
