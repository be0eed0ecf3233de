#pragma once

#include "DataIO/Slice.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Utils/TimeCode.h"

#include <optional>

/// The headers of MPEG-2 video (ISO/IEC 13818-2, 6.2), as far as analyzers
/// need them.
namespace Vantry { namespace Analyzers {

/// Values of start codes.
enum VideoStartCode : unsigned char
{
    PICTURE = 0x00,
    SEQUENCE_HEADER = 0xB3,
    EXTENSION = 0xB5,
    SEQUENCE_END = 0xB7,
    GROUP = 0xB8,
    FIRST_SYSTEM_CODE = 0xB9, ///< from here on they belong to multiplexes
};

/// What begins an extension.
enum VideoExtension : unsigned char
{
    SEQUENCE_EXTENSION = 1,
    PICTURE_CODING_EXTENSION = 8,
};

/// The sequence header with its extension: what a stream's format is.
struct SequenceHeader
{
    /// Bytes behind the start code that the header takes at least, and those
    /// that the extension takes.
    static constexpr UInt64 SIZE = 8;
    static constexpr UInt64 EXTENSION_SIZE = 6;

    unsigned int width = 0;
    unsigned int height = 0;
    unsigned int aspectRatioCode = 0;
    unsigned int frameRateCode = 0;
    UInt64 bitRate = 0; ///< in 400 bits per second

    bool hasExtension = false;
    unsigned int profileAndLevel = 0;
    bool isProgressive = false;
    unsigned int chromaFormat = 0; ///< 1: 4:2:0, 2: 4:2:2, 3: 4:4:4
    bool isLowDelay = false;
    unsigned int frameRateNumerator = 0;
    unsigned int frameRateDenominator = 0;

    void read(DataIO::Slice const & header);
    void readExtension(DataIO::Slice const & extension);

    /// Frames per second; nothing for a code that is reserved.
    std::optional<Templates::Rational<int>> frameRate() const;

    /// Whether pictures of both can stand in one track.
    bool agreesWith(SequenceHeader const & other) const noexcept;
};

/// The header of a group of pictures.
struct GroupHeader
{
    static constexpr UInt64 SIZE = 4;

    bool dropFrame = false;
    unsigned char hours = 0;
    unsigned char minutes = 0;
    unsigned char seconds = 0;
    unsigned char pictures = 0;
    bool isClosed = false;

    void read(DataIO::Slice const & header);

    /// Undefined when the header has numbers that no time of day has.
    ///
    /// \param rate  frames per second
    Utils::TimeCode timeCode(Templates::Rational<int> const & rate) const;
};

enum class PictureType
{
    INTRA = 1,
    PREDICTED = 2,
    BIDIRECTIONAL = 3,
};

enum class PictureStructure
{
    TOP_FIELD = 1,
    BOTTOM_FIELD = 2,
    FRAME = 3,
};

/// The header of a picture with its coding extension.
struct PictureHeader
{
    static constexpr UInt64 SIZE = 2;
    static constexpr UInt64 EXTENSION_SIZE = 5;

    unsigned int temporalReference = 0;
    PictureType type = PictureType::INTRA;

    bool hasExtension = false;
    unsigned int intraDCPrecision = 0;
    PictureStructure structure = PictureStructure::FRAME;
    bool isTopFieldFirst = false;
    bool isProgressive = false;

    /// \return whether these are types and structures that there are
    bool read(DataIO::Slice const & header);
    bool readExtension(DataIO::Slice const & extension);
};

}}
