// Classes of fixed size that have little to do.

#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "Types/Boolean.h"
#include "Types/J2KPictureComponent.h"
#include "Types/Length.h"
#include "Types/Orientation.h"
#include "Types/Position.h"
#include "Types/ProductVersion.h"
#include "Types/RGBALayout.h"
#include "Types/SignalStandard.h"
#include "Types/UTF16.h"
#include "Types/VersionType.h"

namespace Vantry { namespace Types {

ProductVersion::ProductVersion(unsigned short const & major, unsigned short const & minor, unsigned short const & patch,
                               unsigned short const & build, ReleaseVersion releaseVersion) noexcept
{
    unsigned offset = 0;
    for (unsigned short field : {major, minor, patch, build, static_cast<unsigned short>(releaseVersion)})
    {
        number<Platform::UInt16>(offset, field);
        offset += sizeof(Platform::UInt16);
    }
}

RGBAComponent RGBALayout::get(unsigned int index) const
{
    if (index >= COMPONENTS)
        VANTRY_FAIL(InvalidValue, "Cannot set in this index");
    return {bytes()[2 * index], bytes()[2 * index + 1]};
}

void RGBALayout::set(unsigned int index, RGBAComponent component)
{
    if (index >= COMPONENTS)
        VANTRY_FAIL(InvalidValue, "Cannot set in this index");
    bytes()[2 * index] = component.code;
    bytes()[2 * index + 1] = component.depth;
}

template class Concrete<Boolean, FixedSizeType<SimpleDataType, 1>>;
template class Concrete<J2KPictureComponent, FixedSizeType<SimpleDataType, 3>>;
template class Concrete<Length, Int64>;
template class Concrete<Orientation, UInt8>;
template class Concrete<Position, Int64>;
template class Concrete<ProductVersion, FixedSizeType<SimpleDataType, 10>>;
template class Concrete<RGBALayout, FixedSizeType<SimpleDataType, 16>>;
template class Concrete<SignalStandard, UInt8>;
template class Concrete<UTF16, FixedSizeType<SimpleDataType, 2>>;
template class Concrete<VersionType, FixedSizeType<SimpleDataType, 2>>;

}}
