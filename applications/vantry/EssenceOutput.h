#pragma once

#include "EssenceTracks.h"
#include "Platform/Integers.h"

#include <filesystem>
#include <memory>

namespace Vantry { namespace Application {

/// Where the essence of a track goes.
///
/// Nothing is seen of it under its name until `publish`; without that nothing
/// is left. Bytes are taken from where they lie and stay there until `flush`.
class EssenceOutput
{
public:
    virtual ~EssenceOutput() = default;

    /// Takes bytes of an element; more may follow.
    virtual void append(unsigned char const * bytes, std::size_t size) = 0;

    /// What comes is another element.
    virtual void endElement() {}

    virtual void flush() = 0;

    /// All is there. `publish` follows, when all outputs have got so far.
    virtual void complete() = 0;
    virtual void publish() = 0;

    /// Its name, without the folder that it is in.
    virtual std::string name() const = 0;

    /// Bytes of the file, or of all files in the folder.
    virtual UInt64 size() const = 0;

    /// What was wrong with the elements; empty when nothing was.
    virtual std::string fault() const { return {}; }
};

/// What stands behind the name and track number of an output; nothing for a
/// folder.
char const * extensionOf(EssenceForm form);

/// Makes the output for a track: a folder for pictures that are a file each.
///
/// \param path           what it is to be called
/// \param force          take the place of what is there
/// \param firstEditUnit  number of the first picture
/// \throws Failure when it can't be made, or is there already.
std::unique_ptr<EssenceOutput> makeOutput(EssenceTrack const & track, std::filesystem::path const & path, bool force,
                                          UInt64 firstEditUnit);

/// Makes an output that writes to standard output. Sound then says in its
/// header that its length isn't known.
std::unique_ptr<EssenceOutput> makeStandardOutput(EssenceTrack const & track);

}}
