#pragma once

#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"

namespace Vantry {
namespace Metadata { namespace Structural {
class EssenceContainerData;
class SourcePackage;
}}

namespace MXFIO {

/// What the header metadata say of an essence container.
class ContainerMetadata
{
public:
    enum Wrapping
    {
        IS_CLIP,
        IS_NO_CLIP,
        NOT_TOLD
    };

    /// \param container  lent
    /// \throws Exceptions::InvalidID when the container has no body SID.
    /// \throws Exceptions::OperationNotAllowed when it isn't part of a
    ///         Metadata::PartitionMetadata.
    explicit ContainerMetadata(Metadata::Structural::EssenceContainerData & container);

    unsigned int bodySID() const { return bodySID_; }

    /// 0 when there is none.
    unsigned int indexSID() const { return indexSID_; }

    /// Takes what the tracks tell: rate, duration, origin, numbers.
    ///
    /// \param indexRate  edit units per second by the index, which counts if
    ///                   it isn't 0
    void takeTracks(Templates::Rational<Int64> const & indexRate);

    /// 0/1 when nothing tells.
    Templates::Rational<Int64> const & editRate() const { return editRate_; }

    /// Of the longest track, in edit units of the container; -1/1 when none
    /// tells.
    Templates::Rational<Int64> const & duration() const { return duration_; }

    /// Edit units of the container that are stored ahead of the start of the
    /// tracks: the highest number that one tells.
    Templates::Rational<Int64> const & origin() const { return origin_; }

    /// By the label of the essence container.
    ///
    /// \throws Exceptions::BrokenLink, Exceptions::NotFound when package,
    ///         descriptor or label are missing.
    Wrapping wrapping() const;

    /// \throws Exceptions::NotFound when no track has the number.
    unsigned int trackID(unsigned int trackNumber) const;

    /// The package of the container; null when there is none.
    Metadata::Structural::SourcePackage * package() const;

private:
    Metadata::Structural::EssenceContainerData & container_;
    unsigned int bodySID_;
    unsigned int indexSID_;
    Templates::Rational<Int64> editRate_;
    Templates::Rational<Int64> duration_;
    Templates::Rational<Int64> origin_;
    Templates::map<unsigned int, unsigned int> trackIDs_;
};

}
}
