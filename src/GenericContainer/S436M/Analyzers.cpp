// The analyzers of lines and packets: what they differ in is in a table.

#include "GenericContainer/S436M/ANCPacketsAnalyzer.h"
#include "GenericContainer/S436M/VBIDataAnalyzer.h"
#include "Metadata/Structural/CreateSet.h"
#include "Metadata/Structural/GenericDataEssenceDescriptor.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"

namespace Vantry { namespace GenericContainer { namespace S436M {

using Metadata::Structural::GenericDataEssenceDescriptor;

namespace {

struct Kind
{
    unsigned char elementType; // byte 14 of element keys
    unsigned char label[16];
    KLV::Key const & (*descriptor)();
};

Kind const LINES = {1,
                    {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x07, //
                     0x0D, 0x01, 0x03, 0x01, 0x02, 0x0D, 0x00, 0x00},
                    Metadata::Structural::StructuralMetadataKeys::vbiDataDescriptor};

Kind const PACKETS = {2,
                      {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x09, //
                       0x0D, 0x01, 0x03, 0x01, 0x02, 0x0E, 0x00, 0x00},
                      Metadata::Structural::StructuralMetadataKeys::ancPacketsDescriptor};

GenericDataEssenceDescriptor * create(Kind const & kind, Metadata::PartitionMetadata & metadata)
{
    return &Metadata::Structural::createSet<GenericDataEssenceDescriptor>(metadata, kind.descriptor());
}

}

unsigned char VBIDataAnalyzer::essenceElementType() const
{
    return LINES.elementType;
}

unsigned char ANCPacketsAnalyzer::essenceElementType() const
{
    return PACKETS.elementType;
}

Types::UniversalLabel VBIDataAnalyzer::universalLabel()
{
    return Types::UniversalLabel(LINES.label);
}

Types::UniversalLabel ANCPacketsAnalyzer::universalLabel()
{
    return Types::UniversalLabel(PACKETS.label);
}

GenericDataEssenceDescriptor * VBIDataAnalyzer::createMetadataSet(Metadata::PartitionMetadata & metadata)
{
    return create(LINES, metadata);
}

GenericDataEssenceDescriptor * ANCPacketsAnalyzer::createMetadataSet(Metadata::PartitionMetadata & metadata)
{
    return create(PACKETS, metadata);
}

}}}
