// Analyzes any bytes as a stream of essence, and stops when the edit units
// aren't a run of the stream, or one comes after the last.
//
// Input: one byte, 0 for MPEG-2 video, 1 for ancillary packets, FEh for DV, FFh
// for DV in an AVI file and others for a wave, its lower bits for the channel; and
// the stream.

#include "Analyzers/AVIStream.h"
#include "Analyzers/DVAnalyzer.h"
#include "Analyzers/MPEG2VideoAnalyzer.h"
#include "Analyzers/WaveAnalyzer.h"
#include "Exceptions/BaseException.h"
#include "GenericContainer/EditUnit.h"
#include "GenericContainer/S436M/ANCPacketsAnalyzer.h"
#include "support/QueuedBytes.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

using namespace Vantry;

std::unique_ptr<GenericContainer::EssenceAnalyzer> analyzerOf(std::uint8_t kind, std::uint8_t const * data,
                                                              std::size_t size)
{
    using Analyzers::WaveAnalyzer;
    if (kind == 0)
        return std::make_unique<Analyzers::MPEG2VideoAnalyzer>(Tests::queuedBytes(data, size));
    if (kind == 1)
        return std::make_unique<GenericContainer::S436M::ANCPacketsAnalyzer>(Tests::queuedBytes(data, size));
    if (kind == 0xFE)
        return std::make_unique<Analyzers::DVAnalyzer>(Tests::queuedBytes(data, size));
    if (kind == 0xFF)
        return std::make_unique<Analyzers::DVAnalyzer>(
            Templates::SharedPtr<DataIO::SliceSource>(new Analyzers::AVIStream(Tests::queuedBytes(data, size), 0)));
    return std::make_unique<WaveAnalyzer>(Tests::queuedBytes(data, size), WaveAnalyzer::Labels::CLIP,
                                          WaveAnalyzer::Labels::BROADCAST_WAVE,
                                          kind % 4 == 0 ? WaveAnalyzer::ALL_CHANNELS : kind % 4 - 1);
}

void readAll(GenericContainer::EssenceAnalyzer & analyzer, std::size_t size)
{
    analyzer.editRate(Templates::Rational<int>(30000, 1001));
    if (!analyzer.preload())
        return;
    analyzer.currentTimeCode();
    analyzer.getDuration();

    UInt64 total = 0;
    bool isMore = true;
    while (isMore)
    {
        bool const isDone = analyzer.done();
        GenericContainer::EditUnit unit;
        isMore = analyzer.nextEditUnit(unit);
        total += unit.data.data_size();
        if (isMore && (isDone || unit.data.empty() || unit.duration.numerator() <= 0))
            std::abort();
    }
    if (total > size)
        std::abort();
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size < 2)
        return 0;

    try
    {
        readAll(*analyzerOf(data[0], data + 1, size - 1), size - 1);
    }
    catch (Exceptions::BaseException const &)
    {
        // Refused by name, which is an answer.
    }
    return 0;
}
