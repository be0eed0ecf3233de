#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/FileDescriptor.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes interleaved essence: one descriptor for each kind in it (SMPTE
/// 377M).
class VANTRY_EXPORT MultipleDescriptor : public FileDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    MultipleDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// The descriptors of the tracks or containers one by one.
    FileDescriptor * subDescriptor(unsigned int index) const;
    unsigned int subDescriptorsCount() const;
    void addSubDescriptor(unsigned int index, FileDescriptor * target);
    void removeSubDescriptor(unsigned int index);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
