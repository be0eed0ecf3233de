#pragma once

#include "DataIO/SliceSource.h"
#include "Platform/Integers.h"
#include "Templates/SharedPtr.h"

#include <string>
#include <vector>

namespace Vantry { namespace Application {

/// What essence can be.
enum class EssenceKind
{
    DV,
    MPEG2_VIDEO,
    JPEG_2000, ///< a folder with a codestream for each picture
    WAVE,
    S302M,             ///< packets of AES3 sound
    ANCILLARY_PACKETS, ///< elements of SMPTE 436M
    VBI_LINES          ///< elements of SMPTE 436M
};

/// Items of a content package, in their order there (SMPTE 379M).
enum class Item
{
    COMPOUND,
    PICTURE,
    SOUND,
    DATA
};

constexpr Item itemOf(EssenceKind kind)
{
    switch (kind)
    {
    case EssenceKind::DV:
        return Item::COMPOUND;
    case EssenceKind::MPEG2_VIDEO:
    case EssenceKind::JPEG_2000:
        return Item::PICTURE;
    case EssenceKind::WAVE:
    case EssenceKind::S302M:
        return Item::SOUND;
    default:
        return Item::DATA;
    }
}

/// Whether there are pictures in it.
constexpr bool isPictureKind(EssenceKind kind)
{
    return itemOf(kind) < Item::SOUND;
}

/// What essence lies in.
enum class Carrier
{
    NONE,
    AVI,
    PES ///< packets of a stream, with a program stream around them or without
};

/// Essence in a file.
struct FoundEssence
{
    std::string file;
    EssenceKind kind = EssenceKind::WAVE;
    Carrier carrier = Carrier::NONE;
    unsigned int stream = 0; ///< where the carrier has several

    /// How much of the input it counts for, in bytes.
    UInt64 size = 0;
};

/// Tells by the content of a file or folder what is in it.
///
/// \throws Failure when it can't be read or has nothing that can be taken.
std::vector<FoundEssence> findEssence(std::string const & file);

/// The essence without its carrier; sound as a wave stream.
///
/// \throws Failure when the file has changed its mind about what it is.
Templates::SharedPtr<DataIO::SliceSource> openEssence(FoundEssence const & essence);

/// The pictures in a folder, if there are any.
///
/// \throws Failure when there are none.
std::vector<std::string> picturesIn(std::string const & folder);

}}
