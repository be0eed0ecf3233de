#pragma once

#include "Analyzers/ElementAnalyzer.h"
#include "GenericContainer/PictureAnalyzer.h"

#include <memory>
#include <string>
#include <vector>

namespace Vantry { namespace Analyzers {

/// Pictures from files of one JPEG 2000 codestream each (ISO/IEC 15444-1,
/// SMPTE 422M).
///
/// An edit unit is a codestream, uncopied, of one frame. The descriptor and
/// its sub-descriptor come from the first codestream, and the others have its
/// size and components. Where colours are transformed, or the profile is one
/// of digital cinema, they are described as components of colour, otherwise as
/// luma and differences.
class JPEG2000Analyzer : public ElementAnalyzer<GenericContainer::PictureAnalyzer>
{
public:
    /// The files in a folder, those that are hidden aside, by name; numbers
    /// within names by their values.
    ///
    /// \throws Exceptions::IOError when the folder can't be read.
    static std::vector<std::string> filesIn(std::string const & folder);

    /// \param files     paths, in the order of the pictures
    /// \param wrapKind  FRAME or CLIP
    explicit JPEG2000Analyzer(std::vector<std::string> files, Labels::WrapKind wrapKind = Labels::FRAME);
    ~JPEG2000Analyzer() override;

    /// Reads the first codestream.
    ///
    /// \return false when there is none, or the first file isn't one
    /// \throws Exceptions::InvalidFormat, Exceptions::IOError as nextEditUnit.
    bool preload() override;

    /// \throws Exceptions::InvalidFormat for a file that is no codestream, is
    ///         cut off, or has a picture unlike the first; the message tells
    ///         file and place.
    /// \throws Exceptions::IOError when a file can't be read.
    bool nextEditUnit(GenericContainer::EditUnit & unit) override;

    bool done() override;

protected:
    /// That of all files.
    Templates::Rational<int> durationOfStream() override;

    void describe(EssenceMetadata & metadata) override;
    void complete(EssenceMetadata & metadata) override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}}
