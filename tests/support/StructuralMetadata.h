#pragma once

#include "KLV/Key.h"
#include "MetaMetadata/Dictionary.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionDictionary.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/CDCIEssenceDescriptor.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralMetadataKeyList.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TimecodeComponent.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "Metadata/Structural/WAVEAudioEssenceDescriptor.h"
#include "Packs/PrimerPack.h"
#include "Schema/Dictionaries.h"
#include "Types/Boolean.h"
#include "Types/DataStream.h"
#include "Types/DataValue.h"
#include "Types/Int16.h"
#include "Types/Int32.h"
#include "Types/Int8.h"
#include "Types/J2KCodingStyleDefault.h"
#include "Types/J2KPictureComponent.h"
#include "Types/J2KQuantisationDefault.h"
#include "Types/Length.h"
#include "Types/Orientation.h"
#include "Types/Position.h"
#include "Types/ProductVersion.h"
#include "Types/RGBALayout.h"
#include "Types/Rational.h"
#include "Types/SignalStandard.h"
#include "Types/Timestamp.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/UMID32.h"
#include "Types/UTF16String.h"
#include "Types/UUID.h"
#include "Types/UniversalLabel.h"
#include "Types/VersionType.h"
#include "support/Values.h"

#include <list>
#include <numeric>
#include <stdexcept>
#include <typeinfo>

namespace Vantry { namespace Tests {

/// A value of bytes counted up from `first`, as many as it takes.
template <class Type>
Type sample(unsigned char first = 1)
{
    return valueOf<Type>(counting(32, first));
}

/// A label by its version and item bytes, "02 05 20 07 01 08 00 00 00".
inline Types::UniversalLabel attributeLabel(char const * bytes)
{
    return Types::UniversalLabel((hex("06 0E 2B 34 01 01 01") + hex(bytes)).data());
}

/// The keys of all sets of structural metadata.
inline Templates::vector<KLV::Key> structuralKeys()
{
    using namespace Metadata::Structural::StructuralMetadataKeys;
#define VANTRY_KEY(name, text) name(),
    return {VANTRY_STRUCTURAL_METADATA_KEYS(VANTRY_KEY)};
#undef VANTRY_KEY
}

/// A dictionary of the built-in schema in which all attributes are optional.
inline Templates::SharedPtr<MetaMetadata::Dictionary> lenientDictionary()
{
    using namespace ::Vantry::Schema;
    Tables tables = builtInTables();
    std::vector<SetRow> sets(tables.sets.begin(), tables.sets.end());
    std::list<std::vector<AttributeRow>> kept;
    for (SetRow & set : sets)
    {
        std::vector<AttributeRow> & attributes = kept.emplace_back();
        for (AttributeRow const & row : set.attributes)
            attributes.push_back({row.element, MetaMetadata::AttributeRequiredStatus::Opt, row.semantics});
        set.attributes = {attributes.data(), attributes.size()};
    }
    tables.sets = {sets.data(), sets.size()};
    return makeDictionary(tables);
}

/// The same one for all who ask.
inline Templates::SharedPtr<MetaMetadata::Dictionary> const & sharedLenientDictionary()
{
    static auto const lenient = lenientDictionary();
    return lenient;
}

/// A partition of structural metadata.
class StructuralMetadata
{
public:
    using Dictionary = Templates::SharedPtr<MetaMetadata::Dictionary>;

    explicit StructuralMetadata(Dictionary const & dictionary = ::Vantry::Schema::builtInDictionary()) :
        metadata_(new Metadata::PartitionMetadata(
            Templates::auto_ptr<Metadata::PartitionDictionary>(new Metadata::PartitionDictionary(
                dictionary, Templates::auto_ptr<Packs::PrimerPack>(new Packs::PrimerPack)))))
    {
    }

    Metadata::PartitionMetadata & operator*() { return *metadata_; }
    Metadata::PartitionMetadata * operator->() { return metadata_.get(); }

    /// A new set of the class or, if that is abstract, of one derived from it.
    template <class Set>
    Set & make()
    {
        for (bool const derived : {false, true})
            for (KLV::Key const & key : structuralKeys())
            {
                Metadata::MetadataSet & made = *metadata_->createMetadataSet(key);
                Types::UUID const instanceUID(*made.instanceUID());
                Set * const set = dynamic_cast<Set *>(&made);
                if (set != nullptr && (derived || typeid(made) == typeid(Set)))
                    return *set;
                metadata_->removeMetadataSet(instanceUID);
            }
        throw std::logic_error("no set of this class");
    }

private:
    Templates::auto_ptr<Metadata::PartitionMetadata> metadata_;
};

}}
