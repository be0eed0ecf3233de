#pragma once

#include "support/Bytes.h"

namespace Vantry { namespace Tests {

/// A frame of DV with nothing but headers and one byte repeated.
///
/// \param fourth    of the header block: BFh for 625 lines, 3Fh for 525
/// \param control   pack of source control, of 5 bytes
/// \param timeCode  pack of 5 bytes
inline Bytes dvFrame(std::size_t size, unsigned char fourth, unsigned char application, unsigned char signalType,
                     unsigned char content = 0x55, Bytes const & control = hex("61 3F C8 FC FF"),
                     Bytes const & timeCode = hex("FF FF FF FF FF"))
{
    Bytes frame;
    auto const addBlock = [&](Bytes const & start)
    {
        frame += start + repeated(80 - start.size(), 0xFF);
    };
    addBlock(hex("1F 07 00") + Bytes{fourth, static_cast<unsigned char>(0xF8 | application)});
    addBlock(hex("3F 07 00"));
    addBlock(hex("3F 07 01 FF FF FF") + timeCode);
    addBlock(hex("5F 07 00"));
    addBlock(hex("5F 07 01"));
    addBlock(hex("5F 07 02") + repeated(45, 0xFF) + Bytes{0x60, 0xFF, 0xFF, signalType, 0xFF} + control);
    return frame + repeated(size - frame.size(), content);
}

}}
