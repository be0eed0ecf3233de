#pragma once

#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"
#include "Types/RGBAComponent.h"

namespace Vantry { namespace Types {

/// How the components of a pixel lie in memory: eight pairs of code and depth,
/// 16 bytes in all.
class VANTRY_EXPORT RGBALayout : public Concrete<RGBALayout, FixedSizeType<SimpleDataType, 16>>
{
public:
    /// All zero: no components.
    RGBALayout() noexcept = default;

    /// Reads the layout.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit RGBALayout(KLV::Value & source) : Concrete(source) {}

    /// A component; `index` is 0 to 7.
    ///
    /// \throws Exceptions::InvalidValue for another index.
    RGBAComponent get(unsigned int index) const;
    void set(unsigned int index, RGBAComponent component);

private:
    static constexpr unsigned COMPONENTS = 8;
};

extern template class Concrete<RGBALayout, FixedSizeType<SimpleDataType, 16>>;

}}
