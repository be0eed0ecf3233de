#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/TrackableMetadataSet.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes the essence of a package, or where it came from (SMPTE 377M).
class VANTRY_EXPORT GenericDescriptor : public TrackableMetadataSet
{
public:
    ~GenericDescriptor() override;

    /// Where the essence can be found that isn't in the file, best place first.
    Locator * locator(unsigned int index) const;
    unsigned int locatorsCount() const;
    void addLocator(unsigned int index, Locator * target);
    void removeLocator(unsigned int index);

    /// Further descriptions, each of one aspect, beside this one.
    SubDescriptor * linkedSubDescriptor(unsigned int index) const;
    unsigned int linkedSubDescriptorsCount() const;
    void addLinkedSubDescriptor(unsigned int index, SubDescriptor * target);
    void removeLinkedSubDescriptor(unsigned int index);

protected:
    /// For a class derived from this one, with a key of its own.
    GenericDescriptor(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                      MetadataSetOwner * owner);
};

}}}
