#pragma once

#include "GenericContainer/MetadataBuilder.h"
#include "KLV/Key.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/FileDescriptor.h"

namespace Vantry { namespace Analyzers {

/// The one track and the descriptor of an analyzer's essence. The durations
/// of both stand open until they are known, so that the sets have their size
/// from the start.
class EssenceMetadata : public GenericContainer::MetadataBuilder
{
public:
    /// Arguments are those of EssenceAnalyzer::setMetadata.
    ///
    /// \throws Exceptions::NotFound when there is no Preface.
    EssenceMetadata(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                    unsigned int trackNumber, unsigned int trackID, Templates::Rational<int> const & editRate);

    /// Makes the track and the descriptor, which the caller completes.
    ///
    /// \param key             of the class that the descriptor is of
    /// \param dataDefinition  what the track holds
    /// \param container       label of the essence container
    /// \param sampleRate      samples per second, in which the descriptor's
    ///                        duration is counted
    /// \throws Exceptions::NotFound when the dictionary lacks a set or an
    ///         attribute.
    template <class Descriptor>
    Descriptor & describe(KLV::Key const & key, Types::UniversalLabel const & dataDefinition,
                          Types::UniversalLabel const & container, Templates::Rational<int> const & sampleRate)
    {
        auto & descriptor = dynamic_cast<Descriptor &>(*partitionMetadata().createMetadataSet(key));
        place(descriptor, dataDefinition, container, sampleRate);
        return descriptor;
    }

    /// Sets the durations: of the track, and of the descriptor.
    void finish(UInt64 editUnits, UInt64 samples);

private:
    using MetadataBuilder::finish;

    void place(Metadata::Structural::FileDescriptor & descriptor, Types::UniversalLabel const & dataDefinition,
               Types::UniversalLabel const & container, Templates::Rational<int> const & sampleRate);

    Metadata::Structural::FileDescriptor * descriptor_;
};

/// Sets an attribute to a value made of the arguments:
/// `put(descriptor, &FileDescriptor::linkedTrack, 1)`.
template <class Set, class Owner, class Value, class... Arguments>
void put(Set & set, void (Owner::*setter)(Value const *), Arguments const &... arguments)
{
    Value const value(arguments...);
    (set.*setter)(&value);
}

}}
