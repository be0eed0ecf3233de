#pragma once

#include "Metadata/MetadataSetImpl.h"
#include "Types/LocalTag.h"

namespace Vantry {
namespace KLV {
class Value;
}
namespace MetaMetadata {
class MetaElement;
}

namespace Metadata {

/// Reads the value of a packet into a set: each triplet into the element of
/// its attribute, or else into an invalid element.
class SetLoader
{
public:
    SetLoader(MetadataSet & set, MetadataSet::Impl & impl, PartitionDictionary const & dictionary, bool strict) :
        set_(set), impl_(impl), dictionary_(dictionary), strict_(strict)
    {
    }

    /// \param lengthSize  bytes of the length of each triplet
    void load(KLV::Value & packetValue, unsigned lengthSize);

private:
    struct Meaning;

    // The bytes of a value, and the length that it claims.
    struct Content
    {
        unsigned char const * begin;
        unsigned char const * end;
        UInt64 length;
    };

    void loadTriplet(Types::LocalTag const & tag, Content const & content);
    void loadElement(Element & element, Content const & content);
    void loadInvalid(Meaning const & meaning, Content const & content);
    void keep(Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> const & attribute,
              Content const & content);

    Meaning meaningOf(Types::LocalTag const & tag) const;
    Meaning meaningWithoutStrictness(Types::LocalTag const & tag) const;
    Meaning meaningOf(Types::UniversalLabel const & label) const;

    MetadataSet & set_;
    MetadataSet::Impl & impl_;
    PartitionDictionary const & dictionary_;
    bool strict_;
};

}
}
