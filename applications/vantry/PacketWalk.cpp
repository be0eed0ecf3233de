#include "PacketWalk.h"

#include "DataIO/DataSource.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/NotEnoughData.h"
#include "Input.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"

#include <limits>

namespace Vantry { namespace Application {

namespace {

UInt64 const NO_LIMIT = std::numeric_limits<UInt64>::max();

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

}

void walkPackets(Input & input, PacketListener & listener)
{
    DataIO::DataSource & source = input.source();
    KLV::Reader reader(source);

    for (;;)
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
