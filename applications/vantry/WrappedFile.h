#pragma once

#include "Delivery.h"
#include "MXFFileSink.h"
#include "MXFIO/Creator.h"
#include "PatternBuilder.h"
#include "WrapInput.h"
#include "WrapSettings.h"

#include <memory>
#include <vector>

namespace Vantry { namespace Application {

/// A file in the making. It is made in four steps: metadata with `start`,
/// essence with `writeUnit`, durations with `complete`, and `finish` goes back
/// to where they and the places of partitions belong.
class WrappedFile
{
public:
    using Inputs = std::vector<std::unique_ptr<WrapInput>>;

    /// \param rate  edit units per second
    /// \throws Failure when the file can't be made.
    WrappedFile(WrapSettings const & settings, PatternBuilder::Dictionary const & dictionary,
                Templates::Rational<int> const & rate, Inputs inputs, std::filesystem::path const & target, bool force);
    ~WrappedFile();

    /// Makes the metadata and the container.
    ///
    /// \param ofSet  the first time code of the material package, where the
    ///               first of the files that share it has that
    /// \throws Failure when the index can't be where it is wanted.
    void start(std::optional<Utils::TimeCode> const & ofSet = std::nullopt);

    /// As the user wants it, or the essence has it; to be called when it was
    /// started.
    Utils::TimeCode startTimeCode() const;

    /// Writes what comes next; false behind the end.
    ///
    /// \throws Failure for an input at fault, and when the file can't be
    ///         written.
    bool writeUnit();

    void complete();
    void finish();
    void publish() { delivery_.publish(); }

    Inputs const & inputs() const { return inputs_; }
    PatternBuilder & builder() { return *builder_; }
    Metadata::Structural::MaterialPackage & materialPackage() const { return material_->materialPackage(); }
    Metadata::Structural::SourcePackage & sourcePackage() { return *source_; }

    std::filesystem::path const & target() const { return delivery_.target(); }
    UInt64 size() const { return sink_.size(); }
    UInt64 editUnits() const;

    /// The place of the first input's track behind the time code track of the
    /// material package.
    unsigned int place() const { return place_; }
    void place(unsigned int place) { place_ = place; }

    /// Tracks with essence: one for each input, but for those that share one.
    std::size_t tracks() const { return analyzers().size(); }

    /// The number that the track of an input has.
    unsigned int trackID(std::size_t input) const;

private:
    std::vector<WrapInput::Analyzer> analyzers() const;
    Templates::auto_ptr<GenericContainer::Source> makeContainer();
    Templates::auto_ptr<GenericContainer::Source> makeFrames();
    Templates::auto_ptr<GenericContainer::Source> makeClip();
    void makeCreator(Templates::auto_ptr<GenericContainer::Source> container);

    WrapSettings const & settings_;
    Templates::Rational<int> const rate_;
    Inputs inputs_;
    Delivery delivery_;
    MXFFileSink sink_;
    Types::Timestamp const date_;
    std::unique_ptr<PatternBuilder> builder_;
    OPBuilders::MaterialPackageProxy * material_;
    Metadata::Structural::SourcePackage * source_;
    std::unique_ptr<MXFIO::Creator> creator_;
    unsigned int place_;
};

}}
