#pragma once

#include "DataIO/DataSink.h"
#include "Essence/Converters/PCMToWave.h"

namespace Vantry { namespace Essence { namespace Wave {

/// A size that is not known, or has no room in 32 bits.
unsigned int const UNKNOWN_SIZE = 0xFFFFFFFF;

/// Bytes that a sample takes up: 1 to 4.
///
/// \throws Exceptions::InvalidValue "Number of bits per sample is not
///         supported" for more than 32 bits.
unsigned int bytesPerSample(unsigned short bitsPerSample);

/// Writes "RIFF", the size and "WAVE".
void writeRiffHeader(DataIO::DataSink & sink, unsigned int riffSize);

/// Writes the identifier, of four characters, and the length of a chunk;
/// ahead of them a zero where the sink stands at an odd position.
void writeChunkHeader(DataIO::DataSink & sink, char const * id, unsigned int length);

/// Writes a "fmt " chunk: a plain one of up to 16 bits, else an extensible
/// one.
///
/// \throws Exceptions::InvalidValue as `bytesPerSample`.
void writeFormatChunk(DataIO::DataSink & sink, Converters::WaveHeaderStructure const & structure);

}}}
