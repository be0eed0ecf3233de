#pragma once

#include "GenericContainer/PictureAnalyzer.h"
#include "GenericContainer/RP224UniversalLabels.h"

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
class JPEG2000Analyzer : public GenericContainer::PictureAnalyzer
{
public:
    using Labels = GenericContainer::RP224UniversalLabels;

    /// The files in a folder, those that are hidden aside, by name; numbers
    /// within names by their values.
    ///
    /// \throws Exceptions::IOError when the folder can't be read.
    static std::vector<std::string> filesIn(std::string const & folder);

    /// \param files     paths, in the order of the pictures
    /// \param wrapKind  FRAME or CLIP
    explicit JPEG2000Analyzer(std::vector<std::string> files, Labels::WrapKind wrapKind = Labels::FRAME);
    ~JPEG2000Analyzer() override;

    /// The rate of the container.
    Templates::Rational<int> editRate() override;
    void editRate(Templates::Rational<int> const & containerRate) override;

    /// Nothing is passed over: 0.
    UInt64 maximumToSkip() const override;
    void maximumToSkip(UInt64 bytes) override;

    /// Reads the first codestream.
    ///
    /// \return false when there is none, or the first file isn't one
    /// \throws Exceptions::InvalidFormat, Exceptions::IOError as nextEditUnit.
    bool preload() override;

    bool setMetadata(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                     unsigned int trackNumber, unsigned int trackID) override;

    /// \throws Exceptions::InvalidFormat for a file that is no codestream, is
    ///         cut off, or has a picture unlike the first; the message tells
    ///         file and place.
    /// \throws Exceptions::IOError when a file can't be read.
    bool nextEditUnit(GenericContainer::EditUnit & unit) override;

    bool finalize() override;
    Types::UniversalLabel universalLabel() override;
    bool isCBE() const override;

    /// A bound that the application knows; 0 at first.
    void boundedEditUnitSize(int size) override;
    unsigned int boundedEditUnitSize() const override;

    bool containsTemporalDependencies() const override;
    Utils::TimeCode currentTimeCode() override;
    unsigned char itemTypeIdentifier() const override;
    unsigned char essenceElementType() const override;
    unsigned int requiredKAGSize() const override;
    bool done() override;

    /// That of all files, unless another was set. A container that goes on
    /// when the pictures have ended is to hear of none: -1.
    void setDuration(Templates::Rational<int> const & seconds) override;
    Templates::Rational<int> getDuration() override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}}
