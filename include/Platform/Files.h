#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

#include <cstdio>

/// Files by wide name, with 64-bit lengths and positions.
namespace Vantry { namespace Platform {

/// Opens a C stream in a mode such as `u"rb"`; null on failure. Programs that
/// the process starts don't inherit it.
VANTRY_EXPORT std::FILE * fopen(unsigned short const * name, unsigned short const * mode);

/// Opens a file for reading, or for reading and writing; the latter makes one
/// that doesn't exist yet, writable. Binary or text is the same here, and no
/// open locks others out.
///
/// \throws Exceptions::IOError "Error opening file: ('NAME'): " and the
///         system's text.
VANTRY_EXPORT int open(unsigned short const * name, bool binary, bool readOnly);

/// 0, or -1 on failure.
VANTRY_EXPORT int close(int file);

/// The bytes read, 0 at the end of the file, -1 on failure.
VANTRY_EXPORT int read(int file, unsigned char * buffer, unsigned int size);

/// The length in bytes, without what a stream has yet to write; -1 on failure.
VANTRY_EXPORT Int64 getFileSize(std::FILE * file);
VANTRY_EXPORT Int64 getFileSize(int file);

/// Writes what the stream holds and goes to `position`, counted from the
/// start. Whether both succeeded.
VANTRY_EXPORT bool fileSeek(std::FILE * file, Int64 position);

/// Goes to `position`, counted from the start. Always true.
VANTRY_EXPORT bool fileSeek(int file, Int64 position);

/// Removes a file; whether that succeeded.
VANTRY_EXPORT bool unlink(unsigned short const * name);

/// Copies a file with its permissions and replaces the target. Whether that
/// succeeded: if not, the target is as it was. A target that is no plain file
/// is left alone.
VANTRY_EXPORT bool copyFile(unsigned short const * from, unsigned short const * to);

}}
