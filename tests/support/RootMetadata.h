#pragma once

#include "Metadata/Structural/PrefaceHelpers.h"
#include "support/StructuralMetadata.h"

namespace Vantry { namespace Tests {

/// Header metadata of a Preface and its ContentStorage, by a schema in which
/// all is optional.
struct RootMetadata
{
    RootMetadata() :
        metadata(sharedLenientDictionary()),
        preface(metadata.make<Metadata::Structural::Preface>()),
        storage(metadata.make<Metadata::Structural::ContentStorage>())
    {
        preface.contentStorage(&storage);
    }

    /// Lent to whom wants to share it.
    Templates::SharedPtr<Metadata::PartitionMetadata> shared()
    {
        return Templates::SharedPtr<Metadata::PartitionMetadata>(&*metadata, false);
    }

    StructuralMetadata metadata;
    Metadata::Structural::Preface & preface;
    Metadata::Structural::ContentStorage & storage;
};

}}
