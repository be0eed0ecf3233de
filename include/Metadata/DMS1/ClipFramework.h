#pragma once

#include "Platform/Export.h"
#include "Templates/Containers.h"

namespace Vantry { namespace Metadata {

class MetadataSet;
class PartitionMetadata;

namespace Structural {
class TimelineTrack;
}

/// The descriptive metadata scheme DMS-1 (SMPTE 380M). Its sets are plain
/// MetadataSets, read and written by label.
namespace DMS1 {

/// What a clip is.
enum ClipFrameworkClipKind : int
{
    ClipKindStill = 1,
    ClipKindGraphic = 2,
    ClipKindMovingPictures = 3,
    ClipKindSound = 4,
    ClipKindOther = 5
};

/// The kind as it stands in the metadata, such as "Moving Pictures";
/// "Unknown" for another number.
VANTRY_EXPORT Templates::wstring clipKindToWString(ClipFrameworkClipKind kind);

/// Puts a clip framework on a track of descriptive metadata, ahead of what its
/// sequence holds.
///
/// The segment that carries the framework gets no duration, and the Preface
/// doesn't come to list the scheme: both are left to the caller.
///
/// \param languageCode  language of the texts (RFC 5646)
/// \return the framework, which belongs to the metadata
/// \throws Exceptions::InvalidFormat for a track without sequence.
/// \throws Exceptions::NotFound when the dictionary lacks a set or an
///         attribute, std::bad_cast when an attribute is no simple value. What
///         was added by then stays.
VANTRY_EXPORT MetadataSet * createClipFramework(PartitionMetadata & metadata, Structural::TimelineTrack * track,
                                                Templates::string const & languageCode, ClipFrameworkClipKind kind);

}
}}
