#include "Essence/JPEG2000/Header.h"

#include "DataIO/SliceReader.h"
#include "DataIO/SyncResult.h"
#include "DataIO/SyncWordFinder.h"
#include "Essence/JPEG2000/Markers.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Platform/BigEndian.h"
#include "Platform/WideLiteral.h"

#include <algorithm>

namespace Vantry { namespace Essence { namespace JPEG2000 {

namespace {

using DataIO::Slice;
using Templates::auto_ptr;

UInt64 const SEARCH_LIMIT = 4096;

UInt64 const MARKER_SIZE = 2;
UInt64 const LENGTH_SIZE = 2;

// Levels, width and height of a code block, its style, the transformation.
UInt64 const MINIMUM_CODINGSTYLEDEFAULT_SPCOD_SIZE = 5;

// The exponent of the one band that there is without any decomposition.
UInt64 const MINIMUM_QUANTISATIONDEFAULT_SPGCD_SIZE = 1;

// Takes fields from a segment that is long enough for them.
class Fields
{
public:
    explicit Fields(Slice const & slice) noexcept : at_(slice.begin()), end_(slice.end()) {}

    template <class T>
    Fields & operator>>(T & field) noexcept
    {
        field = Platform::readBigEndian<T>(at_);
        at_ += sizeof(T);
        return *this;
    }

    template <std::size_t Size>
    Fields & operator>>(unsigned char (&field)[Size]) noexcept
    {
        std::copy_n(at_, Size, field);
        at_ += Size;
        return *this;
    }

    // All that is left.
    Fields & operator>>(Templates::vector<unsigned char> & field)
    {
        field.assign(at_, end_);
        at_ = end_;
        return *this;
    }

private:
    unsigned char const * at_;
    unsigned char const * end_;
};

class Header
{
public:
    Header(StartOfTilePart & startOfTilePart, ImageTileSize & imageTileSize, CodingStyleDefault & codingStyleDefault,
           QuantisationDefault & quantisationDefault, ComponentRegistration & componentRegistration,
           MarkerSegments & segments) :
        startOfTilePart_(startOfTilePart),
        imageTileSize_(imageTileSize),
        codingStyleDefault_(codingStyleDefault),
        quantisationDefault_(quantisationDefault),
        componentRegistration_(componentRegistration),
        segments_(segments)
    {
    }

    // A segment of `length` bytes, which `value` follows.
    void take(unsigned char marker, unsigned short length, Slice const & value)
    {
        switch (marker)
        {
        case SIZ:
            return takeImageTileSize(length, value);
        case COD:
            return takeCodingStyleDefault(length, value);
        case QCD:
            return takeQuantisationDefault(length, value);
        case SOT:
            return takeStartOfTilePart(length, value);
        case CRG:
            takeComponentRegistration(length, value);
            return keep(segments_.componentRegistrations, marker, value);
        case PLT:
            return keep(segments_.packetLengths, marker, value);
        case PPT:
            return keep(segments_.packedPacketHeaders, marker, value);
        case COM:
            return keep(segments_.comments, marker, value);
        default:
            return keep(segments_.others, marker, value);
        }
    }

private:
    void takeImageTileSize(unsigned short length, Slice const & value)
    {
        ImageTileSize & size = imageTileSize_;
        if (length < 38)
            VANTRY_FAIL(InvalidFormat, "Image and tile size is too short");

        size.lsiz = length;
        Fields fields(value);
        fields >> size.rsiz >> size.xsiz >> size.ysiz >> size.xOsiz >> size.yOsiz >> size.xTsiz >> size.yTsiz >>
            size.xTOsiz >> size.yTOsiz >> size.csiz;
        if (length != 38 + 3 * UInt64(size.csiz))
            VANTRY_FAIL(InvalidFormat, "Image and tile size doesn't have the length of its components");

        size.components.resize(size.csiz);
        for (ImageTileSize::Component & component : size.components)
            fields >> component.ssiz >> component.xRsiz >> component.yRsiz;
    }

    void takeCodingStyleDefault(unsigned short lcod, Slice const & value)
    {
        static constexpr Platform::WideLiteral REFUSAL(u"Coding Style Default has an invalid SPcod value.");
        CodingStyleDefault & style = codingStyleDefault_;
        UInt64 const fixedSize = sizeof(lcod) + sizeof(style.scod) + sizeof(style.sGcod);
        VANTRY_CHECK_TEXT(lcod > fixedSize, "lcod > (sizeof (lcod) + sizeof (scod) + sizeof (sGcod))", InvalidFormat,
                          REFUSAL.text);
        UInt64 const spcodSize = lcod - fixedSize;
        VANTRY_CHECK(spcodSize >= MINIMUM_CODINGSTYLEDEFAULT_SPCOD_SIZE, InvalidFormat, REFUSAL.text);

        style.lcod = lcod;
        Fields(value) >> style.scod >> style.sGcod >> style.sPcod;
    }

    void takeQuantisationDefault(unsigned short lqcd, Slice const & value)
    {
        static constexpr Platform::WideLiteral REFUSAL(u"Quantisation Default has an invalid SPgcd value.");
        QuantisationDefault & quantisation = quantisationDefault_;
        UInt64 const fixedSize = sizeof(lqcd) + sizeof(quantisation.sqcd);
        VANTRY_CHECK_TEXT(lqcd > fixedSize, "lqcd > (sizeof (lqcd) + sizeof (sqcd))", InvalidFormat, REFUSAL.text);
        UInt64 const sPgcdSize = lqcd - fixedSize;
        VANTRY_CHECK(sPgcdSize >= MINIMUM_QUANTISATIONDEFAULT_SPGCD_SIZE, InvalidFormat, REFUSAL.text);

        quantisation.lqcd = lqcd;
        Fields(value) >> quantisation.sqcd >> quantisation.sPgcd;
    }

    void takeStartOfTilePart(unsigned short length, Slice const & value)
    {
        if (length != 10)
            VANTRY_FAIL(InvalidFormat, "Start of tile part doesn't have its length");

        StartOfTilePart & start = startOfTilePart_;
        start.lsot = length;
        Fields(value) >> start.isot >> start.psot >> start.tpsot >> start.tnsot;
    }

    void takeComponentRegistration(unsigned short length, Slice const & value)
    {
        componentRegistration_.lcrg = length;
        componentRegistration_.offsets.resize(value.size() / 4);
        Fields fields(value);
        for (ComponentRegistration::Offset & offset : componentRegistration_.offsets)
            fields >> offset.xcrg >> offset.ycrg;
    }

    static void keep(MarkerSegments::List & list, unsigned char marker, Slice const & value)
    {
        list.push_back({marker, {value.begin(), value.end()}});
    }

    StartOfTilePart & startOfTilePart_;
    ImageTileSize & imageTileSize_;
    CodingStyleDefault & codingStyleDefault_;
    QuantisationDefault & quantisationDefault_;
    ComponentRegistration & componentRegistration_;
    MarkerSegments & segments_;
};

// Moves the next bytes to the chain, and lends them.
Slice pass(DataIO::SliceReader & reader, UInt64 size, DataIO::Chain & chain)
{
    auto_ptr<Slice> slice = reader.readAligned(size);
    Slice const bytes(*slice);
    chain.push_back(slice);
    return bytes;
}

// Markers without a segment: beside these, all that the standard reserves
// for such.
bool hasSegment(unsigned char marker) noexcept
{
    return marker >= SIZ && marker < EOC && marker != SOD && marker != EPH;
}

// Whether the segment of the marker that comes is one.
bool passSegment(DataIO::SliceReader & reader, unsigned char marker, Header & header, DataIO::Chain & chain)
{
    auto const length = Platform::readBigEndian<unsigned short>(pass(reader, LENGTH_SIZE, chain).begin());
    if (length < LENGTH_SIZE)
        return false;

    header.take(marker, length, pass(reader, length - LENGTH_SIZE, chain));
    return true;
}

}

auto_ptr<Slice> readHeader(StartOfTilePart & startOfTilePart, ImageTileSize & imageTileSize,
                           CodingStyleDefault & codingStyleDefault, QuantisationDefault & quantisationDefault,
                           ComponentRegistration & componentRegistration, JPEG2k_STATE & state, bool & invalid,
                           DataIO::SyncWordFinder & finder, DataIO::SliceReader & reader, MarkerSegments & segments)
{
    Header header(startOfTilePart, imageTileSize, codingStyleDefault, quantisationDefault, componentRegistration,
                  segments);
    DataIO::SyncResult passed;
    while (!invalid && state < STATE_TILE_DATA && finder.find(SEARCH_LIMIT, passed))
    {
        unsigned char const marker = pass(reader, MARKER_SIZE, passed.skipped).begin()[1];
        if (!checkMarker(state, marker) && state != STATE_MAIN_HEADER)
            invalid = true;
        else if (marker == EOC)
            state = STATE_TILE_DATA;
        else if (hasSegment(marker))
            invalid = !passSegment(reader, marker, header, passed.skipped);
    }
    return passed.skipped.makeSlice(0, passed.skipped.data_size());
}

}}}
