#include "OPBuilders/OPLabel.h"

#include "Platform/WideLiteral.h"

#include <algorithm>

namespace Vantry { namespace OPBuilders {

namespace {

int const ITEM_COMPLEXITY = 12;
int const PACKAGE_COMPLEXITY = 13;
int const QUALIFIERS = 14;

unsigned char const ALWAYS = 1 << 0;
unsigned char const EXTERNAL_ESSENCE = 1 << 1;
unsigned char const NON_STREAM = 1 << 2;
unsigned char const SEVERAL_ESSENCE_TRACKS = 1 << 3;

}

OPLabel::OPLabel(bool isExternal, bool nonStream) :
    UniversalLabel(Platform::wide(u"06.0E.2B.34.04.01.01.01.0D.01.02.01.00.00.00.00"),
                   Types::StringRepresentationEncodingType::DOTTED_BYTES)
{
    raise(SINGLE_ITEM);
    raise(SINGLE_PACKAGE);
    qualify(ALWAYS, true);
    qualify(NON_STREAM, nonStream);
    externalEssence(isExternal);
}

void OPLabel::raise(ItemComplexity complexity)
{
    raise(ITEM_COMPLEXITY, complexity);
}

void OPLabel::raise(PackageComplexity complexity)
{
    raise(PACKAGE_COMPLEXITY, complexity);
}

void OPLabel::externalEssence(bool isExternal)
{
    qualify(EXTERNAL_ESSENCE, isExternal);
}

void OPLabel::severalEssenceTracks(bool several)
{
    qualify(SEVERAL_ESSENCE_TRACKS, several);
}

void OPLabel::raise(int place, unsigned char complexity)
{
    bytes()[place] = std::max(bytes()[place], complexity);
}

void OPLabel::qualify(unsigned char bit, bool set)
{
    bytes()[QUALIFIERS] = static_cast<unsigned char>(set ? bytes()[QUALIFIERS] | bit : bytes()[QUALIFIERS] & ~bit);
}

}}
