#pragma once

#include "KLV/Key.h"
#include "MetaMetadata/LocalTagMap.h"
#include "MetaMetadata/MetaMetadataSet.h"
#include "MetaMetadata/UniversalLabelMap.h"
#include "Templates/Containers.h"

namespace Vantry { namespace MetaMetadata {

class MetaElement;

/// A complete schema of header metadata: which sets there are, what they may
/// hold and under which tags.
///
/// The application fills it once; the library reads it and never fills it. It
/// is shared, also between threads, for as long as any metadata refer to it.
class VANTRY_EXPORT Dictionary : public LocalTagMap, public UniversalLabelMap
{
public:
    VANTRY_CLASS_ALLOCATION

    using MetaElements = Templates::map<Types::UniversalLabel, MetaElement *>;
    using MetaMetadataSets = Templates::map<KLV::Key, MetaMetadataSet>;
    using LocalTags = Templates::map<Types::LocalTag, Types::UniversalLabel>;

    Dictionary();
    Dictionary(Dictionary const &) = delete;
    Dictionary & operator=(Dictionary const &) = delete;
    ~Dictionary() override;

    void add(Types::LocalTag const & tag, Types::UniversalLabel const & label) override;
    Types::LocalTag const * find(Types::UniversalLabel const & label) const override;
    Types::UniversalLabel const * find(Types::LocalTag const & tag) const override;

    /// Copies the set, in place of an earlier one under the key.
    virtual void add(KLV::Key const & key, MetaMetadataSet const & set);

    /// The set of a key, or null.
    virtual MetaMetadataSet const * find(KLV::Key const & key) const;

    void add(Types::UniversalLabel const & label, Templates::auto_ptr<MetaElement> element) override;
    MetaElement const * findMetaElement(Types::UniversalLabel const & label) const override;

    /// All elements, by label.
    MetaElements::const_iterator metaElementBegin() const;
    MetaElements::const_iterator metaElementEnd() const;

    /// All sets, by key.
    MetaMetadataSets::const_iterator metaMetadataSetBegin() const;
    MetaMetadataSets::const_iterator metaMetadataSetEnd() const;

    /// All static tags.
    LocalTags::const_iterator localTag2ULBegin() const;
    LocalTags::const_iterator localTag2ULEnd() const;

    /// The sets, by key, whose own property `name` is `value` to the letter.
    Templates::vector<MetaMetadataSet const *> findMetaMetadataSetProperty(Templates::wstring const & name,
                                                                           Templates::wstring const & value) const;

    /// The sets, by key, with an attribute whose property `name` is `value`;
    /// once for each such attribute.
    Templates::vector<MetaMetadataSet const *>
    findMetaMetadataSetWithMetaAtributeProperty(Templates::wstring const & name,
                                                Templates::wstring const & value) const;

    /// The elements, by label, whose property `name` is `value`.
    Templates::vector<MetaElement const *> findMetaElementProperty(Templates::wstring const & name,
                                                                   Templates::wstring const & value) const;

private:
    class Impl;
    Impl * impl_;
};

}}
