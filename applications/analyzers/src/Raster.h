#pragma once

#include "Metadata/Structural/CDCIEssenceDescriptor.h"

namespace Vantry { namespace Analyzers {

/// Sets the lines on which the fields of a picture begin, or the frame, and
/// the standard of its signal, as the number of lines has them. Pictures of no
/// standard are lines of nothing but themselves.
///
/// \param height  lines of a frame
void describeLines(Metadata::Structural::GenericPictureEssenceDescriptor & picture, unsigned int height,
                   bool isProgressive);

/// Sets where the picture lies in what is stored.
///
/// \param width, height    of the picture; of a field, where fields are
///                         separate
/// \param storedWidth, storedHeight  of what is stored
void describeSize(Metadata::Structural::GenericPictureEssenceDescriptor & picture, unsigned int width,
                  unsigned int height, unsigned int storedWidth, unsigned int storedHeight);

/// Sets the levels of samples of 8 bits, as ITU-R BT.601 and 709 have them.
void describeEightBits(Metadata::Structural::CDCIEssenceDescriptor & picture);

}}
