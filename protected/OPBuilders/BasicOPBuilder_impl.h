#pragma once

#include "Metadata/Structural/Declarations.h"
#include "OPBuilders/OPLabel.h"
#include "OPBuilders/ProxyBase.h"
#include "Platform/Allocation.h"
#include "Templates/SharedPtr.h"
#include "Types/Timestamp.h"

namespace Vantry {
namespace MetaMetadata {
class Dictionary;
}
namespace Types {
class ProductVersion;
class UUID;
}

namespace OPBuilders {

/// The application that makes a file.
struct Product
{
    unsigned short const * companyName;
    unsigned short const * productName;
    unsigned short const * versionString;
    Types::UUID const & productUID;

    /// Null when it isn't to be told.
    Types::ProductVersion const * productVersion;
};

/// What builders of all operational patterns have in common: the metadata with
/// the sets that each file has.
class BasicOPBuilder_impl
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param date  null for now
    BasicOPBuilder_impl(Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary, Product const & product,
                        Types::Timestamp const * date, bool isExternal, bool nonStream);
    BasicOPBuilder_impl(BasicOPBuilder_impl const &) = delete;
    BasicOPBuilder_impl & operator=(BasicOPBuilder_impl const &) = delete;

    Templates::SharedPtr<Metadata::PartitionMetadata> const & metadata() const { return metadata_; }
    Metadata::Structural::Preface & preface() const { return *preface_; }
    Metadata::Structural::ContentStorage & contentStorage() const { return *contentStorage_; }
    Types::Timestamp const & date() const { return date_; }

    OPLabel & label() { return label_; }
    OPLabel const & label() const { return label_; }

    bool externalEssence() const { return externalEssence_; }
    void externalEssence(bool isExternal) { externalEssence_ = isExternal; }

    /// What packages are made with.
    ProxyBase base() { return {*metadata_, *identification_, label_}; }

    /// Has the Preface list the essence containers that the descriptors of
    /// source packages tell; none of external essence.
    ///
    /// \param withMultipleWrappings  also the label that stands for several
    /// \throws Exceptions::InvalidFormat for a descriptor that doesn't tell;
    ///         the list is as before then.
    void updateEssenceContainers(bool withMultipleWrappings);

private:
    Templates::SharedPtr<Metadata::PartitionMetadata> metadata_;
    Metadata::Structural::Preface * preface_ = nullptr;
    Metadata::Structural::ContentStorage * contentStorage_ = nullptr;
    Types::Timestamp date_;
    Metadata::Structural::Identification * identification_ = nullptr;
    OPLabel label_;
    bool externalEssence_;
};

}
}
