#pragma once

namespace Vantry { namespace Essence { namespace JPEG2000 {

/// The second bytes of a codestream's markers (ISO/IEC 15444-1, table A.1);
/// the first is FFh.
enum Marker : unsigned char
{
    SOC = 0x4F, ///< start of codestream
    SIZ = 0x51, ///< image and tile size
    COD = 0x52, ///< coding style default
    COC = 0x53, ///< coding style of a component
    TLM = 0x55, ///< lengths of tile parts
    PLM = 0x57, ///< packet lengths, main header
    PLT = 0x58, ///< packet lengths, tile-part header
    QCD = 0x5C, ///< quantisation default
    QCC = 0x5D, ///< quantisation of a component
    RGN = 0x5E, ///< region of interest
    POC = 0x5F, ///< change of progression order
    PPM = 0x60, ///< packed packet headers, main header
    PPT = 0x61, ///< packed packet headers, tile-part header
    CRG = 0x63, ///< component registration
    COM = 0x64, ///< comment
    SOT = 0x90, ///< start of tile part
    SOP = 0x91, ///< start of packet
    EPH = 0x92, ///< end of packet header
    SOD = 0x93, ///< start of data
    EOC = 0xD9, ///< end of codestream
};

}}}
