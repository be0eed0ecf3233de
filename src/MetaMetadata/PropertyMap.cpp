#include "MetaMetadata/PropertyMap.h"

#include "Exceptions/Check.h"
#include "Exceptions/NotFound.h"

#include <algorithm>

namespace Vantry { namespace MetaMetadata {

PropertyMap & PropertyMap::operator=(PropertyMap const & other) = default;

PropertyMap::~PropertyMap() = default;

void PropertyMap::addProperty(Templates::wstring const & name, Templates::wstring const & value)
{
    properties_[name] = value;
}

Templates::wstring const & PropertyMap::getProperty(Templates::wstring const & name) const
{
    Templates::wstring const * const property = findProperty(name);
    if (property == nullptr)
        VANTRY_FAIL(NotFound, Platform::stringToWstring("Property not found: ") + name);
    return *property;
}

Templates::wstring const * PropertyMap::findProperty(Templates::wstring const & name) const
{
    auto const found = properties_.find(name);
    return found != properties_.end() ? &found->second : nullptr;
}

bool operator==(PropertyMap const & left, PropertyMap const & right)
{
    return std::equal(left.propertiesBegin(), left.propertiesEnd(), right.propertiesBegin(), right.propertiesEnd());
}

}}
