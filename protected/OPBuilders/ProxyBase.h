#pragma once

#include "Metadata/Structural/CreateSet.h"
#include "Metadata/Structural/Declarations.h"
#include "OPBuilders/OPLabel.h"

namespace Vantry { namespace OPBuilders {

/// What the parts of a builder work with; the builder lends it.
class ProxyBase
{
public:
    ProxyBase(Metadata::PartitionMetadata & metadata, Metadata::Structural::Identification & identification,
              OPLabel & label) :
        metadata_(metadata), identification_(identification), label_(label)
    {
    }

    /// What the parts of a part are made with.
    ProxyBase const & base() const { return *this; }

    /// A new set of this run of the application.
    ///
    /// \throws Exceptions::NotFound when the dictionary doesn't know the key,
    ///         or the set has no generation there.
    template <class Set>
    Set & create(KLV::Key const & key) const
    {
        Set & set = Metadata::Structural::createSet<Set>(metadata_, key);
        set.generation(&identification_);
        return set;
    }

    /// The operational pattern, to be told of what makes it more complex.
    OPLabel & label() const { return label_; }

private:
    Metadata::PartitionMetadata & metadata_;
    Metadata::Structural::Identification & identification_;
    OPLabel & label_;
};

}}
