#pragma once

#include "Types/UniversalLabel.h"

namespace Vantry { namespace OPBuilders {

/// The label of a generalized operational pattern (SMPTE 377M, 7.3):
///
///     12  item complexity
///     13  package complexity
///     14  qualifiers
///
/// Files only become more complex.
class OPLabel : public Types::UniversalLabel
{
public:
    enum ItemComplexity : unsigned char
    {
        SINGLE_ITEM = 1,
        SEVERAL_CLIPS = 2,
        SUB_CLIPS = 3
    };

    enum PackageComplexity : unsigned char
    {
        SINGLE_PACKAGE = 1,
        GANGED_PACKAGES = 2,
        ALTERNATE_PACKAGES = 3
    };

    OPLabel(bool isExternal, bool nonStream);

    void raise(ItemComplexity complexity);
    void raise(PackageComplexity complexity);

    void externalEssence(bool isExternal);

    /// Whether a source package has more than one track of essence.
    void severalEssenceTracks(bool several);

private:
    void raise(int place, unsigned char complexity);
    void qualify(unsigned char bit, bool set);
};

}}
