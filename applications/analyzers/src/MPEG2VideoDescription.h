#pragma once

#include "PictureGroups.h"

namespace Vantry {
namespace Metadata { namespace Structural {
class CDCIEssenceDescriptor;
class MPEG2VideoDescriptor;
}}

namespace Analyzers {

/// Sets what pictures are, whatever their coding: size, lines, fields, samples.
///
/// \param first  the first frame
void describePicture(Metadata::Structural::CDCIEssenceDescriptor & picture, SequenceHeader const & sequence,
                     PictureHeader const & first);

/// Completes a descriptor by what the headers of a stream say.
///
/// \param first  the first frame
void describeVideo(Metadata::Structural::MPEG2VideoDescriptor & video, SequenceHeader const & sequence,
                   PictureHeader const & first, bool hasPredicted);

/// Sets what is known of the stream's groups.
void describeGroups(Metadata::Structural::MPEG2VideoDescriptor & video, PictureGroups const & groups);

}
}
