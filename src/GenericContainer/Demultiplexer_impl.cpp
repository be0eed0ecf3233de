#include "GenericContainer/Demultiplexer_impl.h"

#include "DataIO/BlockHolder.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Exceptions/BaseException.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidState.h"
#include "GenericContainer/ItemOutput.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/ElementKey.h"
#include "MXFIO/EssenceUtils.h"
#include "MXFIO/Seeker.h"
#include "Utils/NumberText.h"

#include <algorithm>

namespace Vantry { namespace GenericContainer {

namespace {

UInt64 const SEARCH_LIMIT = 4096;

// However few or many bytes are wanted, so many are read at once.
UInt64 const SMALLEST_PIECE = 65536;
UInt64 const LARGEST_PIECE = 1 << 20;

}

Demultiplexer_impl::Demultiplexer_impl(MXFIO::ContentStorageReader & container, UInt64 mostCached,
                                       CacheLimitHandling limitHandling) :
    container_(container), mostCached_(mostCached), limitHandling_(limitHandling)
{
}

void Demultiplexer_impl::join(ItemOutput & output, unsigned int trackNumber)
{
    KLV::Key const key = keyOf(trackNumber);
    if (memberWith(key) != nullptr)
        VANTRY_FAIL(InvalidState, "Track number 0x" + Utils::hexadecimal(trackNumber) + " has an output already");
    members_.push_back({&output, trackNumber, key});
}

void Demultiplexer_impl::leave(ItemOutput & output)
{
    members_.erase(std::find_if(members_.begin(), members_.end(),
                                [&](Member const & member) { return member.output == &output; }));
    if (target_ == &output)
        target_ = nullptr;
    makeRoom();
}

// What failed once fails for all: nobody knows what is missing.
template <class Work>
auto Demultiplexer_impl::remembering(Work const & work)
{
    if (failure_)
        std::rethrow_exception(failure_);
    try
    {
        return work();
    }
    catch (Exceptions::BaseException const & failure)
    {
        // The threads that share it are to find the text ready, not compose it.
        failure.what();
        failure_ = std::current_exception();
        throw;
    }
    catch (...)
    {
        failure_ = std::current_exception();
        throw;
    }
}

bool Demultiplexer_impl::read(unsigned int trackNumber, UInt64 howMuch, UInt64 & turn)
{
    ItemOutput const & asking = *memberFor(trackNumber).output;
    while (asking.currentCachedSize() == 0 && remembering([this] { return findBytes(); }))
    {
        if (target_->currentCachedSize() > mostCached_)
        {
            turn = refuse();
            return false;
        }
        remembering([this, howMuch] { readPiece(howMuch); });
    }
    return true;
}

// Goes on to bytes that an output is there for; false at the end.
bool Demultiplexer_impl::findBytes()
{
    while (target_ == nullptr || packet_->value().remaining() == 0)
    {
        packet_.reset();
        target_ = nullptr;
        packet_ = container_.nextKLV(SEARCH_LIMIT);
        hasEnded_ = packet_.get() == nullptr;
        if (hasEnded_)
            return false;

        if (Member const * const member = memberWith(packet_->key()))
            target_ = member->output;
        else
            container_.discardKLVPacket(packet_);
    }
    return true;
}

void Demultiplexer_impl::readPiece(UInt64 howMuch)
{
    KLV::Value & value = packet_->value();
    UInt64 const size = std::min(value.remaining(), std::clamp(howMuch, SMALLEST_PIECE, LARGEST_PIECE));
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(size);
    UInt64 const got = value.read(block.block()->data(), size);

    DataIO::Chain piece;
    piece.push_back(Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, got)));
    target_->push_data(piece);

    // The end of the file cuts the packet off.
    if (got == 0)
        target_ = nullptr;
}

// Tells the turn to wait for, if a read may wait.
UInt64 Demultiplexer_impl::refuse()
{
    if (limitHandling_ == FAIL_AT_CACHE_LIMIT)
        VANTRY_FAIL(InvalidState, "The output of track number 0x" +
                                      Utils::hexadecimal(memberWith(packet_->key())->trackNumber) +
                                      " holds as much as it may");

    std::lock_guard<std::mutex> const lock(roomMutex_);
    return turn_;
}

void Demultiplexer_impl::taken(UInt64 cachedBefore, UInt64 size)
{
    if (cachedBefore > mostCached_ && cachedBefore - size <= mostCached_)
        makeRoom();
}

void Demultiplexer_impl::makeRoom()
{
    std::lock_guard<std::mutex> const lock(roomMutex_);
    ++turn_;
    roomMade_.notify_all();
}

void Demultiplexer_impl::waitForRoom(UInt64 turn)
{
    std::unique_lock<std::mutex> lock(roomMutex_);
    roomMade_.wait(lock, [this, turn] { return turn_ != turn; });
}

// The key that packets of the track have, as far as the container tells.
KLV::Key Demultiplexer_impl::keyOf(unsigned int trackNumber) const
{
    MXFIO::Seeker const & seeker = container_.seeker();
    return seeker.trackNumberExists(trackNumber) ? seeker.elementKey(trackNumber) : MXFIO::trackNumber2Key(trackNumber);
}

Demultiplexer_impl::Member const & Demultiplexer_impl::memberFor(unsigned int trackNumber) const
{
    return *std::find_if(members_.begin(), members_.end(),
                         [&](Member const & member) { return member.trackNumber == trackNumber; });
}

Demultiplexer_impl::Member const * Demultiplexer_impl::memberWith(KLV::Key const & key) const
{
    auto const found = std::find_if(members_.begin(), members_.end(),
                                    [&](Member const & member) { return MXFIO::isKeyOf(member.key, key); });
    return found != members_.end() ? &*found : nullptr;
}

}}
