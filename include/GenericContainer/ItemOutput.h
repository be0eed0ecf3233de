#pragma once

#include "DataIO/Chain.h"
#include "DataIO/SliceSource.h"
#include "Platform/Export.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace Platform { namespace Synchronization {
class Mutex;
}}

namespace GenericContainer {

class Demultiplexer_impl;

/// The bytes of one essence element of a container that is being taken apart:
/// the values of its packets, one after the other. A Demultiplexer makes it.
///
/// Bytes come on demand. What others ask for brings some of this element as
/// well, which waits here; when nothing does, a read has the demultiplexer go
/// on. So outputs can be read in turns by one thread, or each by one of its
/// own. An output keeps alive what it reads from, except for what was lent to
/// the demultiplexer; one that has gone is passed over.
class VANTRY_EXPORT ItemOutput : public DataIO::SliceSource
{
public:
    /// Joins the outputs of a demultiplexer.
    ///
    /// \param trackNumber  bytes 12 to 15 of the element's key, of which byte
    ///                     13, the number of elements in the item, doesn't
    ///                     matter
    /// \param mutex        that of the demultiplexer
    /// \throws Exceptions::InvalidState when the element has an output.
    ItemOutput(Templates::SharedPtr<Demultiplexer_impl> demultiplexer, unsigned int trackNumber,
               Platform::Synchronization::Mutex & mutex);
    ItemOutput(ItemOutput const &) = delete;
    ItemOutput & operator=(ItemOutput const &) = delete;
    ~ItemOutput() override;

    /// The oldest slice that waits here, whole, whatever `howMuch` says; with
    /// none, about `howMuch` bytes are read from the container. Empty at its
    /// end.
    ///
    /// \throws Exceptions::IOError when the source fails, whichever output was
    ///         read. All get the same failure, each behind what it has.
    /// \throws Exceptions::InvalidState when others hold as much as they may;
    ///         see Demultiplexer. Once they have been read, this one goes on.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;

    /// How many bytes were read and skipped.
    UInt64 absoluteOffset() const override;

    /// Whether nothing waits here, and the container has ended or `signalEOS`
    /// was called.
    bool endOfStream() const override;

    /// Passes over up to `howMuch` bytes. Failures as with `read`.
    UInt64 skip(UInt64 howMuch) override;

    /// Appends what the chain has, and leaves it empty.
    virtual void push_data(DataIO::Chain & chain);

    /// How many bytes wait here.
    virtual UInt64 currentCachedSize() const;

    /// Says that nothing more will come.
    virtual void signalEOS();

private:
    template <class Work>
    auto whenFilled(UInt64 howMuch, Work const & work);
    Templates::auto_ptr<DataIO::Slice> takeFirst();
    UInt64 drop(UInt64 howMuch);
    void handedOut(UInt64 size);

    Templates::SharedPtr<Demultiplexer_impl> const demultiplexer_;
    unsigned int const trackNumber_;
    UInt64 handedOut_ = 0;
    bool hasEnded_ = false;
    DataIO::Chain cache_;
    UInt64 cachedSize_ = 0;
    Platform::Synchronization::Mutex & mutex_;
};

}
}
