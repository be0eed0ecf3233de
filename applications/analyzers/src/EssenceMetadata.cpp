#include "Analyzers/EssenceMetadata.h"

#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Types/Length.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Analyzers {

using Metadata::Structural::FileDescriptor;
using Metadata::Structural::MultipleDescriptor;
using Metadata::Structural::SourcePackage;

namespace {

Int64 const UNKNOWN = -1;

MultipleDescriptor * multipleDescriptorOf(SourcePackage * package)
{
    return package != nullptr ? dynamic_cast<MultipleDescriptor *>(package->descriptor()) : nullptr;
}

}

EssenceMetadata::EssenceMetadata(Metadata::PartitionMetadata & metadata, SourcePackage * package,
                                 unsigned int trackNumber, unsigned int trackID,
                                 Templates::Rational<int> const & editRate) :
    MetadataBuilder(metadata, package, multipleDescriptorOf(package), trackNumber, trackID, editRate, 0),
    descriptor_(nullptr)
{
}

void EssenceMetadata::place(FileDescriptor & descriptor, Types::UniversalLabel const & dataDefinition,
                            Types::UniversalLabel const & container, Templates::Rational<int> const & sampleRate)
{
    put(descriptor, &FileDescriptor::linkedTrack, trackId());
    put(descriptor, &FileDescriptor::sampleRate, sampleRate.numerator(), sampleRate.denominator());
    put(descriptor, &FileDescriptor::containerDuration, UNKNOWN);
    put(descriptor, &FileDescriptor::essenceContainer, container);
    descriptor_ = &descriptor;

    createEssenceTrack(dataDefinition, trackNumber());
    setDescriptorToPackage(&descriptor);
}

void EssenceMetadata::finish(UInt64 editUnits, UInt64 samples)
{
    position(static_cast<Int64>(editUnits) - 1);
    finish();
    if (descriptor_ != nullptr)
        put(*descriptor_, &FileDescriptor::containerDuration, static_cast<Int64>(samples));
}

}}
