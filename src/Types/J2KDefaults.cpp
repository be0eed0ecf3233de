#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "KLV/Value.h"
#include "Platform/BigEndian.h"
#include "Types/J2KCodingStyleDefault.h"
#include "Types/J2KQuantisationDefault.h"

#include <utility>

namespace Vantry { namespace Types {

namespace {

using Bytes = Templates::vector<unsigned char>;

unsigned const CODINGSTYLE_HEAD_SIZE = 5;
Platform::UInt64 const MINIMUM_J2KCODINGSTYLEDEFAULT_SPCOD_SIZE = 5;
Platform::UInt64 const MINIMUM_J2KCODINGSTYLEDEFAULT_SIZE = 10;

unsigned const QUANTISATION_HEAD_SIZE = 1;
Platform::UInt64 const MINIMUM_J2KQUANTISATIONDEFAULT_SPGCD_SIZE = 1;
Platform::UInt64 const MINIMUM_J2KQUANTISATIONDEFAULT_SIZE = 2;

KLV::Value & checkedCodingStyle(KLV::Value & source)
{
    VANTRY_CHECK(source.remaining () >= MINIMUM_J2KCODINGSTYLEDEFAULT_SIZE, InvalidValue,
                 "J2KCodingStyleDefault size is smaller than required. J2KCodingStyleDefault must be at least 10 bytes.");
    return source;
}

KLV::Value & checkedQuantisation(KLV::Value & source)
{
    // The text has always named the other class.
    VANTRY_CHECK(source.remaining () >= MINIMUM_J2KQUANTISATIONDEFAULT_SIZE, InvalidValue,
                 "J2KQuantisationDefault size is smaller than required. J2KCodingStyleDefault must be at least 2 bytes.");
    return source;
}

Bytes codingStyleBytes(unsigned char scod, unsigned int sGcod, unsigned char const * spcod,
                       Platform::UInt64 spcodBufferSize)
{
    VANTRY_CHECK(spcodBufferSize >= MINIMUM_J2KCODINGSTYLEDEFAULT_SPCOD_SIZE, InvalidValue,
                 "J2KCodingStyleDefault Spcod item size is smaller than required. Spcod must be at least 5 bytes.");

    Bytes bytes(CODINGSTYLE_HEAD_SIZE);
    bytes[0] = scod;
    Platform::writeBigEndian<Platform::UInt32>(sGcod, &bytes[1]);
    bytes.insert(bytes.end(), spcod, spcod + spcodBufferSize);
    return bytes;
}

Bytes quantisationBytes(unsigned char sqcd, unsigned char const * sPgcd, Platform::UInt64 sPgcdBufferSize)
{
    VANTRY_CHECK(sPgcdBufferSize >= MINIMUM_J2KQUANTISATIONDEFAULT_SPGCD_SIZE, InvalidValue,
                 "J2KQuantisationDefault sPgcd item size is smaller than required. Spcod must be at least 1 bytes.");

    Bytes bytes(QUANTISATION_HEAD_SIZE, sqcd);
    bytes.insert(bytes.end(), sPgcd, sPgcd + sPgcdBufferSize);
    return bytes;
}

}

J2KDefault::J2KDefault(Bytes bytes, unsigned headSize) :
    VariableSizeType(std::move(bytes)),
    tail_(this->bytes().data() + headSize, within32Bits(this->bytes().size() - headSize))
{
}

J2KDefault::J2KDefault(KLV::Value & source, unsigned headSize) :
    VariableSizeType(source), tail_(bytes().data() + headSize, within32Bits(bytes().size() - headSize))
{
}

J2KCodingStyleDefault::J2KCodingStyleDefault(KLV::Value & source) :
    Concrete(checkedCodingStyle(source), CODINGSTYLE_HEAD_SIZE)
{
}

J2KCodingStyleDefault::J2KCodingStyleDefault(unsigned char scod, unsigned int sGcod, unsigned char const * spcod,
                                             Platform::UInt64 spcodSize) :
    Concrete(codingStyleBytes(scod, sGcod, spcod, spcodSize), CODINGSTYLE_HEAD_SIZE)
{
}

unsigned char J2KCodingStyleDefault::scod() const noexcept
{
    return bytes()[0];
}

unsigned int J2KCodingStyleDefault::sGcod() const noexcept
{
    return Platform::readBigEndian<Platform::UInt32>(bytes().data() + 1);
}

J2KQuantisationDefault::J2KQuantisationDefault(KLV::Value & source) :
    Concrete(checkedQuantisation(source), QUANTISATION_HEAD_SIZE)
{
}

J2KQuantisationDefault::J2KQuantisationDefault(unsigned char sqcd, unsigned char const * sPgcd, Platform::UInt64 size) :
    Concrete(quantisationBytes(sqcd, sPgcd, size), QUANTISATION_HEAD_SIZE)
{
}

unsigned char J2KQuantisationDefault::sqcd() const noexcept
{
    return bytes()[0];
}

template class Concrete<J2KCodingStyleDefault, J2KDefault>;
template class Concrete<J2KQuantisationDefault, J2KDefault>;

}}
