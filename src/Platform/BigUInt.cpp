#include "Platform/BigUInt.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "Templates/Containers.h"

#include <cstddef>

namespace Vantry { namespace Platform {

class BigUInt::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    using Digits = Templates::vector<unsigned char>;

    Impl(UInt64 value, unsigned short theBase) : base(theBase)
    {
        VANTRY_CHECK(base >= 2 && base <= 256, InvalidValue, "The base of a number must lie between 2 and 256");
        for (; value != 0; value /= base)
            digits.push_back(static_cast<unsigned char>(value % base));
    }

    void multiply(Digits const & factor)
    {
        Digits result(digits.size() + factor.size());
        for (std::size_t i = 0; i < digits.size(); ++i)
        {
            unsigned int carry = 0;
            for (std::size_t j = 0; j < factor.size(); ++j)
            {
                carry += result[i + j] + static_cast<unsigned int>(digits[i]) * factor[j];
                result[i + j] = static_cast<unsigned char>(carry % base);
                carry /= base;
            }
            result[i + factor.size()] = static_cast<unsigned char>(carry);
        }

        while (!result.empty() && result.back() == 0)
            result.pop_back();
        digits.swap(result);
    }

    // Below, at or above zero as this is less than, equal to or greater than
    // the other.
    int compare(Impl const & other) const
    {
        checkBase(other);
        if (digits.size() != other.digits.size())
            return digits.size() < other.digits.size() ? -1 : 1;

        for (std::size_t i = digits.size(); i-- > 0;)
            if (digits[i] != other.digits[i])
                return digits[i] < other.digits[i] ? -1 : 1;
        return 0;
    }

    void checkBase(Impl const & other) const
    {
        VANTRY_CHECK(base == other.base, InvalidValue, "Numbers of different bases can't meet");
    }

    unsigned short base;
    Digits digits; // the least significant first, none of the leading ones is 0
};

BigUInt::BigUInt(UInt64 value, unsigned short base) : impl_(new Impl(value, base)) {}

BigUInt::BigUInt(BigUInt const & other) : impl_(new Impl(*other.impl_)) {}

BigUInt & BigUInt::operator=(BigUInt const & other)
{
    if (this != &other)
        *impl_ = Impl(*other.impl_);
    return *this;
}

BigUInt::~BigUInt()
{
    delete impl_;
}

BigUInt & BigUInt::operator*=(BigUInt const & other)
{
    impl_->checkBase(*other.impl_);
    impl_->multiply(other.impl_->digits);
    return *this;
}

bool BigUInt::operator<(BigUInt const & other) const
{
    return impl_->compare(*other.impl_) < 0;
}

bool BigUInt::operator<=(BigUInt const & other) const
{
    return impl_->compare(*other.impl_) <= 0;
}

bool BigUInt::operator>(BigUInt const & other) const
{
    return impl_->compare(*other.impl_) > 0;
}

bool BigUInt::operator>=(BigUInt const & other) const
{
    return impl_->compare(*other.impl_) >= 0;
}

bool BigUInt::operator==(BigUInt const & other) const
{
    return impl_->compare(*other.impl_) == 0;
}

bool BigUInt::operator!=(BigUInt const & other) const
{
    return impl_->compare(*other.impl_) != 0;
}

bool BigUInt::value(UInt64 & value) const
{
    UInt64 result = 0;
    for (std::size_t i = impl_->digits.size(); i-- > 0;)
        if (__builtin_mul_overflow(result, impl_->base, &result) ||
            __builtin_add_overflow(result, impl_->digits[i], &result))
            return false;

    value = result;
    return true;
}

}}
