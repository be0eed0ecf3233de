#include "PacketWalk.h"

#include "ByteCoders/BER.h"
#include "DataIO/DataSource.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/NotEnoughData.h"
#include "Input.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"

#include <cstring>
#include <limits>
#include <optional>

namespace Vantry { namespace Application {

namespace {

UInt64 const NO_LIMIT = std::numeric_limits<UInt64>::max();
std::size_t const KEY_SIZE = 16;

// A length field that can't be decoded shows with its first byte. The search
// goes on with the second byte of its key.
UInt64 const STEP_BACK_TO_SECOND_BYTE = 16;

/// Finds the next packet, or the end: then the result is empty.
Templates::auto_ptr<KLV::Packet> nextPacket(Input & input, KLV::Reader & reader, bool & unreadableLength)
{
    unreadableLength = false;
    for (;;)
    {
        try
        {
            UInt64 skipped = 0;
            return reader.nextKLV(skipped, NO_LIMIT);
        }
        catch (Exceptions::InvalidFormat const &)
        {
            unreadableLength = true;
            input.stepBack(STEP_BACK_TO_SECOND_BYTE);
        }
        catch (Exceptions::NotEnoughData const &)
        {
            return Templates::auto_ptr<KLV::Packet>();
        }
    }
}

/// Key and length of a packet.
struct Head
{
    unsigned char const * key;
    unsigned char berLength;
    UInt64 length;

    std::size_t size() const { return KEY_SIZE + berLength; }
};

/// The head of a packet that lies in memory from its first byte to its last,
/// if nothing is odd about it.
std::optional<Head> headInMemory(BytesInMemory const & memory)
{
    unsigned char const PREFIX[] = {0x06, 0x0E, 0x2B, 0x34};
    unsigned const HIGHEST_CATEGORY = 3;
    std::size_t const LONGEST_BER = 9;
    unsigned const INDEFINITE_LENGTH = 0x80;
    unsigned const LONGEST_LENGTH = 0x88; // eight bytes follow

    if (memory.size < KEY_SIZE + LONGEST_BER || std::memcmp(memory.bytes, PREFIX, sizeof(PREFIX)) != 0 ||
        memory.bytes[sizeof(PREFIX)] > HIGHEST_CATEGORY)
        return std::nullopt;

    unsigned char const * const field = memory.bytes + KEY_SIZE;
    if (*field == INDEFINITE_LENGTH || *field > LONGEST_LENGTH)
        return std::nullopt;
    Head head{memory.bytes, ByteCoders::decodeBERSize(*field), 0};
    ByteCoders::decodeBER(field, head.berLength, head.length);
    bool const isWhole = head.length <= memory.size - KEY_SIZE - head.berLength;
    return isWhole ? std::optional(head) : std::nullopt;
}

/// The head of the next packet, which the source then stands before, if that
/// lies in memory. Fill items ahead of it cost no more than a look.
std::optional<Head> nextInMemory(Input & input, bool passesFill)
{
    BytesInMemory const memory = input.ahead();
    std::size_t passed = 0;
    std::optional<Head> head = headInMemory(memory);
    while (head && passesFill && KLV::isFillItem(KLV::Key(head->key)))
    {
        passed += head->size() + head->length;
        head = headInMemory({memory.bytes + passed, memory.size - passed});
    }
    input.source().skip(passed);
    return head;
}

/// Takes the packets that are in memory, in a fraction of the time that the
/// reader needs for small ones. Returns whether the listener wants more.
bool takeFromMemory(Input & input, PacketListener & listener)
{
    DataIO::DataSource & source = input.source();
    bool const passesFill = listener.ignoresFill();
    while (std::optional<Head> const head = nextInMemory(input, passesFill))
    {
        UInt64 const start = source.absoluteOffset();
        source.skip(head->size());
        KLV::Packet packet(KLV::Key(head->key), head->berLength, head->length, source, start);
        listener.value(packet);
        listener.packet(packet, head->length);
        if (listener.isSatisfied())
            return false;
    }
    return true;
}

}

void walkPackets(Input & input, PacketListener & listener)
{
    DataIO::DataSource & source = input.source();
    KLV::Reader reader(source);

    while (takeFromMemory(input, listener))
    {
        UInt64 const start = source.absoluteOffset();
        bool unreadableLength = false;
        Templates::auto_ptr<KLV::Packet> const packet = nextPacket(input, reader, unreadableLength);

        UInt64 const end = packet ? packet->keyAbsoluteOffset() : source.absoluteOffset();
        if (end > start)
            listener.gap(start, end - start, unreadableLength);
        if (!packet)
            return;

        UInt64 const valueStart = source.absoluteOffset();
        listener.value(*packet);
        packet->value().discard();
        listener.packet(*packet, source.absoluteOffset() - valueStart);
        if (listener.isSatisfied())
            return;
    }
}

}}
