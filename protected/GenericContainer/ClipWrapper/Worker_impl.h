#pragma once

#include "DataIO/BufferSliceSource.h"
#include "DataIO/SliceSource.h"
#include "GenericContainer/BaseWorkerImpl.h"
#include "GenericContainer/ClipWrapper/KLVLengthUpdater.h"

namespace Vantry { namespace GenericContainer { namespace ClipWrapper {

/// Where the bytes of a clip come from when the analyzers don't give them.
struct ClipInput
{
    static constexpr unsigned int DEFAULT_BLOCK_SIZE = 4096;

    /// Has the bytes; empty when the analyzers give them.
    Templates::SharedPtr<DataIO::BufferSliceSource> buffer;

    /// Feeds the buffer and the analyzers as it is read; may be empty.
    Templates::SharedPtr<DataIO::SliceSource> demultiplexer;
    unsigned int blockSize = DEFAULT_BLOCK_SIZE;

    /// Bytes of the clip; 0 when they aren't known.
    UInt64 size = 0;
};

/// Makes the clips of a clip-wrapped container, edit unit by edit unit.
class Worker_impl : public BaseWorkerImpl
{
public:
    Worker_impl(ContainerData const & data, ClipInput input);
    ~Worker_impl() override;

    /// Takes the next part of a clip. With the first comes its key and, when
    /// the length isn't known, an updater for it.
    bool next(DataIO::Chain & chain, bool & complete, Templates::SharedPtr<MXFIO::FutureUpdater> & updater,
              Templates::Rational<Int64> & duration) override;
    bool done() const override;
    void finalize() override;

protected:
    void doNextContentPackage(DataIO::Chain & chain, Seconds & duration) override;

private:
    bool isDemultiplexed() const;
    bool areAnalyzersDone() const;
    void openClip(DataIO::Chain & chain, Templates::SharedPtr<MXFIO::FutureUpdater> & updater);
    void setLength(UInt64 length);
    void fillBehindClip(UInt64 length, DataIO::Chain & chain);
    bool closeAnalyzedClip(DataIO::Chain & chain);
    bool nextBuffered(DataIO::Chain & chain, bool & complete);
    void drainBuffer(DataIO::Chain & chain);
    bool readEditUnit(AnalyzerEntry & entry, DataIO::Chain & chain, Seconds & duration);

    ClipInput input_;

    // The clip that is being written, and the bytes from the buffer in it.
    Entries::iterator current_;
    UInt64 bufferedBytes_;
    bool keyWritten_;
    Templates::SharedPtr<KLVLengthUpdater> pending_;
};

}}}
