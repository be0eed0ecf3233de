#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"
#include "Types/LocalTag.h"
#include "Types/UniversalLabel.h"

namespace Vantry {
namespace MetaMetadata {
class Dictionary;
}
namespace Packs {
class PrimerPack;
}

namespace Metadata {

/// A dictionary as one partition sees it: together with the partition's
/// primer pack it tells labels by local tags, and gives new tags out.
///
/// One thread at a time.
class VANTRY_EXPORT PartitionDictionary
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param dictionary  shared with whoever else reads it
    /// \param primer      the partition's primer pack, taken over
    PartitionDictionary(Templates::SharedPtr<MetaMetadata::Dictionary> dictionary,
                        Templates::auto_ptr<Packs::PrimerPack> primer);
    PartitionDictionary(PartitionDictionary const &) = delete;
    PartitionDictionary & operator=(PartitionDictionary const &) = delete;
    ~PartitionDictionary();

    Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary() const noexcept;
    Packs::PrimerPack const & primer() const noexcept;

    /// The tag that the primer has for a label.
    ///
    /// \throws Exceptions::LocalTagNotFound when it has none.
    Types::LocalTag const & find(Types::UniversalLabel const & label) const;

    /// The label of a tag.
    ///
    /// With `strict`, the tag must be in the primer and, from 01.00 to 7F.FF,
    /// where tags mean the same in every file, also in the dictionary with
    /// the same label. Otherwise the primer is asked first and the dictionary
    /// where the primer has nothing.
    ///
    /// \throws Exceptions::InvalidLocalTag for the tag 00.00.
    /// \throws Exceptions::NotFoundInPrimer when the primer lacks a tag that
    ///         it must have.
    /// \throws Exceptions::LocalTagNotFound when the dictionary lacks a tag
    ///         that it must have.
    /// \throws Exceptions::UniversalLabelCollision when both know the tag and
    ///         don't agree.
    Types::UniversalLabel const & find(Types::LocalTag const & tag, bool strict) const;

    /// The tag for a label: that of the primer, or else the dictionary's
    /// static tag, or else a free one from 80.00 on. A new tag is entered in
    /// the primer.
    ///
    /// \throws Exceptions::InvalidLocalTag when no tag is free.
    Types::LocalTag const & findOrGenerate(Types::UniversalLabel const & label);

    /// Keeps a tag from being given out, because something in the partition
    /// bears it without being in the primer.
    void reserve(Types::LocalTag const & tag);

private:
    class Impl;
    Impl * impl_;
};

}
}
