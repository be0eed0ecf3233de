#pragma once

#include "support/WaveFile.h"

namespace Vantry { namespace Tests {

inline Bytes aviList(std::string const & type, Bytes const & chunks, std::string const & id = "LIST")
{
    return waveChunk(id, Bytes(type.begin(), type.end()) + chunks);
}

/// The headers of a stream, such as "auds".
inline Bytes aviStream(std::string const & type, Bytes const & format)
{
    return aviList("strl",
                   waveChunk("strh", Bytes(type.begin(), type.end()) + repeated(52, 0)) + waveChunk("strf", format));
}

inline Bytes aviFile(Bytes const & streams, Bytes const & chunks)
{
    return aviList("AVI ", aviList("hdrl", waveChunk("avih", repeated(56, 0)) + streams) + aviList("movi", chunks),
                   "RIFF");
}

}}
