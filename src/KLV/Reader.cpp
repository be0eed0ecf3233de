#include "KLV/Reader.h"

#include "ByteCoders/BER.h"
#include "DataIO/DataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/KeyNotFound.h"
#include "Exceptions/NotEnoughData.h"
#include "KLV/KeyBytes.h"
#include "KLV/PeekRecords.h"
#include "Utils/NumberText.h"

#include <cstring>

namespace Vantry { namespace KLV {

namespace {

// The first bytes of a key, which a search tests at each place: prefix and
// category.
UInt64 const WINDOW_SIZE = 5;
UInt64 const KEY_SIZE = 16;
unsigned char const MAXIMUM_BER_LENGTH = 9;

bool isPacketCategory(unsigned char category)
{
    return category <= 3 || category == 5;
}

void readAll(DataIO::DataSource & source, unsigned char * destination, UInt64 howMuch)
{
    for (UInt64 done = 0; done < howMuch;)
    {
        UInt64 const got = source.read(destination + done, howMuch - done);
        if (got == 0)
            VANTRY_FAIL(NotEnoughData, "Not enough data");
        done += got;
    }
}

[[noreturn]] void failSearch(UInt64 position, UInt64 skipped)
{
    Templates::string text = "Exceeded maximum bytes to skip before finding a key. Started to search at 0x";
    text += Utils::hexadecimal(position - WINDOW_SIZE - skipped);
    text += " Skipped 0x";
    text += Utils::hexadecimal(skipped);
    text += " current position: 0x";
    text += Utils::hexadecimal(position);
    VANTRY_FAIL(KeyNotFound, text);
}

}

class Reader::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Reader & reader, DataIO::DataSource & theSource) : source(theSource), reader_(reader) {}

    // The record of this thread, holding the key that ends where the source
    // stands.
    PeekRecord & takeKey(PEEK_KIND kind, UInt64 & skipped, UInt64 maxBytesToSkip);

    // Returns the size of the length field.
    unsigned char readLength(UInt64 & length);

    DataIO::DataSource & source;

private:
    void search(unsigned char * window, PEEK_KIND kind, UInt64 & skipped, UInt64 maxBytesToSkip);
    bool isStartKey(unsigned char * window, PEEK_KIND kind);

    Reader & reader_;
    PeekRecords records_;
};

PeekRecord & Reader::Impl::takeKey(PEEK_KIND kind, UInt64 & skipped, UInt64 maxBytesToSkip)
{
    skipped = 0;
    PeekRecord & record = records_.ofThisThread();
    if (record.key && record.position == source.absoluteOffset())
        return record;

    unsigned char bytes[KEY_SIZE];
    search(bytes, kind, skipped, maxBytesToSkip);

    record.key.reset();
    readAll(source, bytes + WINDOW_SIZE, KEY_SIZE - WINDOW_SIZE);
    record.key.emplace(bytes);
    record.position = source.absoluteOffset();
    return record;
}

void Reader::Impl::search(unsigned char * window, PEEK_KIND kind, UInt64 & skipped, UInt64 maxBytesToSkip)
{
    readAll(source, window, WINDOW_SIZE);

    while (!isStartKey(window, kind))
    {
        std::memmove(window, window + 1, WINDOW_SIZE - 1);
        readAll(source, window + WINDOW_SIZE - 1, 1);
        if (++skipped > maxBytesToSkip)
            failSearch(source.absoluteOffset(), skipped);
    }
}

bool Reader::Impl::isStartKey(unsigned char * window, PEEK_KIND kind)
{
    if (KeyBytes::hasSMPTEPrefix(window) && (kind != PEEK_PACKET_KEY || isPacketCategory(window[4])))
        return true;

    return reader_.isValidStartKey(window, WINDOW_SIZE);
}

unsigned char Reader::Impl::readLength(UInt64 & length)
{
    unsigned char field[MAXIMUM_BER_LENGTH];
    readAll(source, field, 1);

    unsigned char const berLength = ByteCoders::decodeBERSize(field[0]);
    VANTRY_CHECK_TEXT(berLength <= MAXIMUM_BER_LENGTH, "berLength <= 9", InvalidFormat,
                      "Invalid BER length. Please refer to S377M, heading 5.3.4 for more details.");

    if (berLength > 1)
        readAll(source, field + 1, berLength - 1);
    ByteCoders::decodeBER(field, berLength, length);
    return berLength;
}

Reader::Reader(DataIO::DataSource & source) : impl_(new Impl(*this, source)) {}

Reader::~Reader()
{
    delete impl_;
}

DataIO::DataSource & Reader::source() const noexcept
{
    return impl_->source;
}

Templates::auto_ptr<Packet> Reader::nextKLV(UInt64 & skipped, UInt64 maxBytesToSkip)
{
    PeekRecord & record = impl_->takeKey(PEEK_PACKET_KEY, skipped, maxBytesToSkip);

    UInt64 length = 0;
    unsigned char const berLength = impl_->readLength(length);
    Templates::auto_ptr<Packet> packet(
        new Packet(*record.key, berLength, length, impl_->source, record.position - KEY_SIZE));
    record.key.reset();
    return packet;
}

Key Reader::peekNextKey(UInt64 & skipped, UInt64 maxBytesToSkip)
{
    return peekNextKey(skipped, PEEK_PACKET_KEY, maxBytesToSkip);
}

Key Reader::peekNextKey(UInt64 & skipped, PEEK_KIND kind, UInt64 maxBytesToSkip)
{
    return *impl_->takeKey(kind, skipped, maxBytesToSkip).key;
}

bool Reader::isValidStartKey(unsigned char *, UInt64)
{
    return false;
}

}}
