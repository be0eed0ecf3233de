#pragma once

#include "GenericContainer/S436M/S436MBaseAnalyzer.h"

namespace Vantry { namespace GenericContainer { namespace S436M {

/// Brings lines of the vertical blanking interval. A container has one of these.
class VANTRY_EXPORT VBIDataAnalyzer : public S436MBaseAnalyzer
{
public:
    using S436MBaseAnalyzer::S436MBaseAnalyzer;

    Types::UniversalLabel universalLabel() override;
    unsigned char essenceElementType() const override;
    Metadata::Structural::GenericDataEssenceDescriptor *
    createMetadataSet(Metadata::PartitionMetadata & metadata) override;
};

}}}
