#pragma once

#include "EditUnitIndex.h"
#include "EssenceTracks.h"
#include "KLV/Key.h"

namespace Vantry {
namespace MXFIO {
class Partition;
class Reader2;
}

namespace Application {

/// Whether a packet is an essence element: of the Generic Container, or with a
/// private key.
bool isEssenceElement(KLV::Key const & key);

/// How an essence container lies in a file.
struct ContainerSurvey
{
    /// All of the essence is one element.
    bool isClipWrapped = false;

    /// Of the element that begins each edit unit; nothing where no essence was
    /// found.
    std::optional<KLV::Key> firstKey;

    /// Of the container's edit units; 0 when nothing tells.
    Templates::Rational<Int64> editRate;

    /// Edit units that the metadata claim, pre-charge included.
    std::optional<Int64> duration;

    std::unique_ptr<EditUnitIndex> index;
};

/// Looks at the start of a container and at its index.
///
/// \throws Exceptions::IOError when the file can't be read.
ContainerSurvey surveyContainer(MXFIO::Reader2 & reader, EssenceContainer const & container);

/// Finds the stream of a container that the metadata tie to none; no other
/// changes.
///
/// \throws Exceptions::IOError when the file can't be read.
void findStream(MXFIO::Reader2 & reader, EssenceContainer & container);

/// Where an edit unit of a frame-wrapped container begins in the file, by the
/// index; nothing when it doesn't tell, or no edit unit begins there.
///
/// \throws Exceptions::IOError when the file can't be read.
std::optional<UInt64> positionByIndex(MXFIO::Reader2 & reader, EssenceContainer const & container,
                                      ContainerSurvey const & survey, Int64 editUnit);

}
}
