#pragma once

#include "Platform/Integers.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"
#include "Types/Rational.h"

namespace Vantry {
namespace Metadata { namespace Structural {
class SourcePackage;
class TimelineTrack;
}}

namespace MXFIO {

class ContentStorageProfile;
class ContentStorageReader;
class ElementReader;

/// Makes the element reader that suits a track and the wrapping of its
/// container.
class ElementReaderSelection
{
public:
    /// What of a track is to be read; see ContentStorageReader::elementReader.
    struct Wish
    {
        Int64 startPosition;
        Int64 duration;
        Types::Rational editRate;
        bool emulateFrameWrapping;
    };

    /// \param package  of the container; null when there is none
    ElementReaderSelection(ContentStorageReader & reader, Metadata::Structural::SourcePackage const * package,
                           Templates::SharedPtr<ContentStorageProfile> const & profile);

    /// \throws Exceptions as ContentStorageReader::elementReader.
    Templates::auto_ptr<ElementReader> make(unsigned int trackID, Wish const & wish);

private:
    Metadata::Structural::TimelineTrack const & findTrack(unsigned int trackID) const;
    void checkDuration(Metadata::Structural::TimelineTrack const & track) const;
    unsigned int trackNumberOf(Metadata::Structural::TimelineTrack const & track) const;

    ContentStorageReader & reader_;
    Metadata::Structural::SourcePackage const * package_;
    Templates::SharedPtr<ContentStorageProfile> profile_;
};

}
}
