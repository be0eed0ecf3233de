#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace MetaMetadata {
class Dictionary;
}
namespace Metadata {
class PartitionMetadata;
}
namespace Types {
class ProductVersion;
class Timestamp;
class UMID32;
class UniversalLabel;
class UUID;
}
namespace Utils {
class TimeCode;
}

/// Builders of the top of a file's header metadata, and with it of the label
/// that tells how complex the file is.
namespace OPBuilders {

class MaterialPackageProxy;

/// Builds header metadata for any generalized operational pattern, OP1a to
/// OP3c (SMPTE 377M, 7).
///
/// It makes Preface, Identification and ContentStorage; the source packages are
/// those that essence containers make in its metadata. Material packages refer
/// to them:
///
///     GenericOPBuilder builder(dictionary, ...);
///     // add essence containers to builder.metadata()
///     builder.createMaterialPackage(start, rate) -> addSourcePackage(0, sourcePackage);
///     builder.update();
///
/// Nobody chooses the operational pattern: it follows from the packages,
/// tracks and clips that there are. Packages and clips of the builder that are
/// taken out of the metadata still count.
///
/// Failures leave the metadata as far as they were built. One thread at a time.
class VANTRY_EXPORT GenericOPBuilder
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param dictionary       the schema of the metadata
    /// \param companyName      who made the application; these three end with
    ///                         a zero
    /// \param productName      the application
    /// \param versionString    its version, for people
    /// \param productUID       identifies the application
    /// \param productVersion   its version; may be null. One of zeros stands
    ///                         for the version of this library too.
    /// \param date             when the file is made; null for now
    /// \param externalEssence  the essence lies outside the file
    /// \param nonStream        the file isn't laid out to be played while it
    ///                         is transferred
    /// \throws Exceptions::NotFound when the dictionary lacks a set or an
    ///         attribute.
    GenericOPBuilder(Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary,
                     unsigned short const * companyName, unsigned short const * productName,
                     unsigned short const * versionString, Types::UUID const & productUID,
                     Types::ProductVersion const * productVersion, Types::Timestamp const * date, bool externalEssence,
                     bool nonStream);
    GenericOPBuilder(GenericOPBuilder const &) = delete;
    GenericOPBuilder & operator=(GenericOPBuilder const &) = delete;

    /// Destroys the proxies; the metadata stay with those who share them.
    ~GenericOPBuilder();

    Templates::SharedPtr<Metadata::PartitionMetadata> const & metadata() const;

    /// Adds a material package with a time code track.
    ///
    /// \param start  the first time code
    /// \param rate   edit units of the time code track per second
    /// \return owned by the builder
    MaterialPackageProxy * createMaterialPackage(Utils::TimeCode const & start, Templates::Rational<int> const & rate);

    /// The same with an identifier of the package that is given, not new.
    MaterialPackageProxy * createMaterialPackage(Utils::TimeCode const & start, Templates::Rational<int> const & rate,
                                                 Types::UMID32 const & id);

    /// Whether the essence lies outside the file, from the next update on. The
    /// Preface then lists no essence containers.
    void externalEssence(bool externalEssence);

    /// Whether the Preface doesn't list the label that stands for several
    /// essence containers, from the next update on.
    void suppressMultipleWrappingsUL(bool suppress);

    /// The operational pattern as of now. What the metadata hold comes in with
    /// the next update.
    Types::UniversalLabel const & currentOP() const;

    /// Brings the metadata up to date with what was built and with the source
    /// packages: durations, operational pattern, essence containers. To be
    /// called ahead of writing and again when durations have changed.
    ///
    /// \throws Exceptions::InvalidFormat when a source package isn't complete,
    ///         or a source track consists of other parts than source clips.
    /// \throws Exceptions::InvalidValue for durations that 64 bits don't hold,
    ///         and for an edit rate with a denominator of 0.
    void update();

private:
    class Impl;
    Impl * impl_;
};

}
}
