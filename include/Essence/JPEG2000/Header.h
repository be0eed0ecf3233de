#pragma once

#include "DataIO/Slice.h"
#include "Essence/JPEG2000/MarkerState.h"
#include "Platform/Export.h"
#include "Templates/Containers.h"
#include "Templates/auto_ptr.h"

namespace Vantry {

namespace DataIO {
class SliceReader;
class SyncWordFinder;
}

/// JPEG 2000 codestreams (ISO/IEC 15444-1). Fields bear the names of the
/// standard; a length counts itself and what follows it.
namespace Essence { namespace JPEG2000 {

/// The SOT marker segment.
struct StartOfTilePart
{
    unsigned short lsot = 0;
    unsigned short isot = 0; ///< which tile
    unsigned int psot = 0;   ///< bytes of the tile part, marker included; 0: up to the end
    unsigned char tpsot = 0; ///< which part of the tile
    unsigned char tnsot = 0; ///< how many parts the tile has; 0: not told
};

/// The SIZ marker segment, sizes and offsets on the reference grid.
struct ImageTileSize
{
    struct Component
    {
        unsigned char ssiz;  ///< bits less one; the top bit for signed samples
        unsigned char xRsiz; ///< grid points from one sample to the next
        unsigned char yRsiz;
    };

    unsigned short lsiz = 0;
    unsigned short rsiz = 0; ///< capabilities, the profile
    unsigned int xsiz = 0;
    unsigned int ysiz = 0;
    unsigned int xOsiz = 0;
    unsigned int yOsiz = 0;
    unsigned int xTsiz = 0;
    unsigned int yTsiz = 0;
    unsigned int xTOsiz = 0;
    unsigned int yTOsiz = 0;
    unsigned short csiz = 0;
    Templates::vector<Component> components;
};

/// The COD marker segment.
struct CodingStyleDefault
{
    unsigned short lcod = 0;
    unsigned char scod = 0;
    unsigned char sGcod[4] = {}; ///< progression order, layers in two bytes, component transformation
    Templates::vector<unsigned char> sPcod;
};

/// The QCD marker segment.
struct QuantisationDefault
{
    unsigned short lqcd = 0;
    unsigned char sqcd = 0;
    Templates::vector<unsigned char> sPgcd;
};

/// The CRG marker segment.
struct ComponentRegistration
{
    /// In 65536ths of the component's distance of samples.
    struct Offset
    {
        unsigned short xcrg;
        unsigned short ycrg;
    };

    unsigned short lcrg = 0;
    Templates::vector<Offset> offsets;
};

/// A marker segment as it is, without marker and length.
struct MarkerSegment
{
    unsigned char marker;
    Templates::vector<unsigned char> value;
};

/// What a header has beside the records above, in its order.
struct MarkerSegments
{
    using List = Templates::list<MarkerSegment>;

    List packetLengths;          ///< PLT
    List packedPacketHeaders;    ///< PPT
    List componentRegistrations; ///< CRG
    List comments;               ///< COM
    List others;
};

/// Reads a codestream up to the data of a tile part and returns the bytes up
/// to there as one slice. `state` is STATE_START at first; nothing is done in
/// STATE_TILE_DATA or behind it, and the slice is empty.
///
/// The finder looks for FFh in the reader, which is left behind the marker
/// that begins the data. The next marker lies within 4096 bytes; where there
/// is none, reading ends with a state ahead of the data. `invalid` is set for
/// a marker that can't stand where it does, or whose length can't be. Unknown
/// markers of the main header are passed over.
///
/// \throws Exceptions::InvalidFormat for a segment too short for its fields;
///         Exceptions::NotEnoughData where the stream ends in a segment.
VANTRY_EXPORT Templates::auto_ptr<DataIO::Slice>
readHeader(StartOfTilePart & startOfTilePart, ImageTileSize & imageTileSize, CodingStyleDefault & codingStyleDefault,
           QuantisationDefault & quantisationDefault, ComponentRegistration & componentRegistration,
           JPEG2k_STATE & state, bool & invalid, DataIO::SyncWordFinder & finder, DataIO::SliceReader & reader,
           MarkerSegments & segments);

/// All that readHeader fills.
struct CodestreamHeader
{
    StartOfTilePart startOfTilePart;
    ImageTileSize imageTileSize;
    CodingStyleDefault codingStyleDefault;
    QuantisationDefault quantisationDefault;
    ComponentRegistration componentRegistration;
    MarkerSegments segments;
    JPEG2k_STATE state = STATE_START;
    bool invalid = false;
};

/// The same, into one record.
inline Templates::auto_ptr<DataIO::Slice> readHeader(CodestreamHeader & header, DataIO::SyncWordFinder & finder,
                                                     DataIO::SliceReader & reader)
{
    return readHeader(header.startOfTilePart, header.imageTileSize, header.codingStyleDefault,
                      header.quantisationDefault, header.componentRegistration, header.state, header.invalid, finder,
                      reader, header.segments);
}

}}
}
