#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Containers.h"

namespace Vantry { namespace MetaMetadata {

/// Free annotations of a part of the schema: texts by name.
///
/// The library reads two of them on attributes: `name`, the name shown to
/// people, and `RequiresSemanticsValidation`, empty unless the presence of
/// the attribute depends on what the metadata mean.
class VANTRY_EXPORT PropertyMap
{
public:
    VANTRY_CLASS_ALLOCATION

    using Properties = Templates::map<Templates::wstring, Templates::wstring>;
    using const_iterator = Properties::const_iterator;

    PropertyMap() = default;
    PropertyMap(PropertyMap const &) = default;
    virtual PropertyMap & operator=(PropertyMap const & other);
    virtual ~PropertyMap();

    /// Sets a property, in place of an earlier one of that name.
    virtual void addProperty(Templates::wstring const & name, Templates::wstring const & value);

    /// \throws Exceptions::NotFound when there is no such property.
    virtual Templates::wstring const & getProperty(Templates::wstring const & name) const;

    /// The property, or null when there is none.
    Templates::wstring const * findProperty(Templates::wstring const & name) const;

    /// All properties, by name.
    const_iterator propertiesBegin() const { return properties_.begin(); }
    const_iterator propertiesEnd() const { return properties_.end(); }

private:
    Properties properties_;
};

VANTRY_EXPORT bool operator==(PropertyMap const & left, PropertyMap const & right);

}}
