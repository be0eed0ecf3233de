#pragma once

#include "Essence/JPEG2000/Header.h"
#include "Metadata/Structural/Declarations.h"
#include "Templates/Rational.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Analyzers {

class EssenceMetadata;

/// Makes track, descriptor and sub-descriptor of pictures by the header of a
/// codestream.
void describeCodestream(EssenceMetadata & metadata, Essence::JPEG2000::CodestreamHeader const & header,
                        Types::UniversalLabel const & container, Templates::Rational<int> const & rate);

}}
