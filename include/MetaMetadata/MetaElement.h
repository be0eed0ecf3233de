#pragma once

#include "MetaMetadata/PropertyMap.h"
#include "Types/Identifiers.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace MetaMetadata {

namespace Visitors {
class MetaElementVisitor;
class NonConstMetaElementVisitor;
}

/// What the schema knows of an attribute wherever it stands: its label and
/// the type of its value.
class VANTRY_EXPORT MetaElement : public PropertyMap
{
public:
    ~MetaElement() override;

    virtual MetaElement & operator=(MetaElement const & other);

    virtual void accept(Visitors::NonConstMetaElementVisitor & visitor) = 0;
    virtual void accept(Visitors::MetaElementVisitor & visitor) const = 0;

    Types::UniversalLabel const & universalLabel() const noexcept { return universalLabel_; }
    Types::Identifiers::Identifier dataType() const noexcept { return dataType_; }

protected:
    MetaElement(Types::UniversalLabel const & label, Types::Identifiers::Identifier dataType);
    MetaElement(MetaElement const &) = default;

private:
    Types::UniversalLabel universalLabel_;
    Types::Identifiers::Identifier dataType_;
};

/// Whether both are of one class with the same label, type, properties and
/// whatever the class adds.
VANTRY_EXPORT bool operator==(MetaElement const & left, MetaElement const & right);

}}
