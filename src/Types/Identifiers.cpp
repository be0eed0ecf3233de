#include "Types/Identifiers.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidType.h"
#include "Platform/WideLiteral.h"
#include "Platform/WideTraits.h"

#include <iterator>

namespace Vantry { namespace Types { namespace Identifiers {

namespace {

int const VARIABLE = 0;

struct Type
{
    // The longest name and its end.
    static constexpr std::size_t NAME_SIZE = 27;

    unsigned short name[NAME_SIZE] = {};
    int size;

    template <std::size_t N>
    constexpr Type(char16_t const (&literal)[N], int bytes) : size(bytes)
    {
        static_assert(N <= NAME_SIZE, "this name needs a wider table");
        for (std::size_t i = 0; i < N; ++i)
            name[i] = static_cast<unsigned short>(literal[i]);
    }
};

// By identifier.
constexpr Type TYPES[] = {
    {u"Array", VARIABLE},
    {u"Batch", VARIABLE},
    {u"Boolean", 1},
    {u"DataStream", VARIABLE},
    {u"DUMMY_TO_REPLACE_EDIT_RATE", VARIABLE},
    {u"Int16", 2},
    {u"Int32", 4},
    {u"Int64", 8},
    {u"Int8", 1},
    {u"ISO7bitCharString", VARIABLE},
    {u"Key", 16},
    {u"Length", 8},
    {u"LocalTag", 2},
    {u"Position", 8},
    {u"ProductVersionType", 10},
    {u"Rational", 8},
    {u"TimestampType", 8},
    {u"UInt16", 2},
    {u"UInt32", 4},
    {u"UInt64", 8},
    {u"UInt8", 1},
    {u"UMID32", 32},
    {u"UMID64", 64},
    {u"UL", 16},
    {u"Unknown", VARIABLE},
    {u"UTF16", 2},
    {u"UTF16CharString", VARIABLE},
    {u"UUID", 16},
    {u"VersionType", 2},
    {u"StrongReference", 16},
    {u"WeakReference", 16},
    {u"DeltaEntryType", VARIABLE},
    {u"IndexEntryType", VARIABLE},
    {u"Orientation", 4},
    {u"RGBALayout", 16},
    {u"SignalStandard", 1},
    {u"DataValue", VARIABLE},
    {u"J2KPictureComponentType", 3},
    {u"J2KCodingStyleDefault", VARIABLE},
    {u"J2KQuantisationDefault", VARIABLE},
};
static_assert(std::size(TYPES) == J2KQuantisationDefault + 1, "each identifier has its row");

bool same(unsigned short const * left, unsigned short const * right)
{
    std::size_t const length = Platform::WideTraits::length(left);
    return length == Platform::WideTraits::length(right) && Platform::WideTraits::compare(left, right, length) == 0;
}

Type const & typeOf(Identifier identifier)
{
    auto const row = static_cast<std::size_t>(identifier);
    return row < std::size(TYPES) ? TYPES[row] : TYPES[Unknown];
}

}

unsigned short const * identifierToString(Identifier identifier)
{
    return typeOf(identifier).name;
}

int typeSize(Identifier identifier)
{
    int const size = typeOf(identifier).size;
    if (size == VARIABLE)
        VANTRY_FAIL(InvalidType, "Type has a variable size.");
    return size;
}

Identifier stringToIdentifier(unsigned short const * text)
{
    if (same(text, Platform::wide(u"J2KPictureComponent")))
        return J2KPictureComponentType;

    for (std::size_t row = 0; row < std::size(TYPES); ++row)
        if (same(text, TYPES[row].name))
            return static_cast<Identifier>(row);
    return Unknown;
}

}}}
