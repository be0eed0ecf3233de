#pragma once

namespace Vantry { namespace Types {

/// One component of an RGBALayout.
struct RGBAComponent
{
    /// What the component is, as a letter: 'R', 'G', 'B', 'A' and others of
    /// SMPTE 377M. 0 ends the layout.
    unsigned char code;
    /// Bits of the component.
    unsigned char depth;
};

}}
