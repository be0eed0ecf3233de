#include "Types/Rational.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"

#include <numeric>

namespace Vantry { namespace Types {

namespace {

// The difference of two fractions, times a positive number: the products of
// 32-bit numbers have room in 64 bits, the opposite of -2^31 too.
Platform::Int64 difference(Rational const & left, Rational const & right)
{
    struct Terms
    {
        explicit Terms(Rational const & r) : over(r.isUndefined() ? 0 : r.numerator()), under(r.denominator())
        {
            if (under < 0)
            {
                over = -over;
                under = -under;
            }
            else if (under == 0)
                under = 1;
        }

        Platform::Int64 over;
        Platform::Int64 under;
    };

    Terms const l(left);
    Terms const r(right);
    return l.over * r.under - r.over * l.under;
}

}

Templates::Rational<int> Rational::value() const
{
    return isUndefined() ? Templates::Rational<int>() : Templates::Rational<int>(numerator(), denominator());
}

double Rational::toDouble() const noexcept
{
    double const whole = numerator();
    return isUndefined() ? whole : whole / denominator();
}

void Rational::normalize() noexcept
{
    if (isUndefined() || numerator() == 0)
        return;

    Platform::Int64 over = numerator();
    Platform::Int64 under = denominator();
    Platform::Int64 const divisor = under < 0 ? -std::gcd(over, under) : std::gcd(over, under);
    over /= divisor;
    under /= divisor;

    // Of -2^31 the opposite has no room.
    if (over == static_cast<int>(over) && under == static_cast<int>(under))
        store(static_cast<int>(over), static_cast<int>(under));
}

bool Rational::equals(Rational const & other) const noexcept
{
    return difference(*this, other) == 0;
}

bool Rational::isLess(Rational const & other) const noexcept
{
    return difference(*this, other) < 0;
}

Rational & Rational::operator+=(Rational const & r)
{
    checkDefined(r);
    store(value() += r.value());
    return *this;
}

Rational & Rational::operator-=(Rational const & r)
{
    checkDefined(r);
    store(value() -= r.value());
    return *this;
}

Rational & Rational::operator*=(Rational const & r)
{
    checkDefined(r);
    store(value() *= r.value());
    return *this;
}

Rational & Rational::operator/=(Rational const & r)
{
    checkDefined(r);
    VANTRY_CHECK_TEXT(r.numerator() != 0, "r_num != 0", InvalidValue, "Division by 0.");
    store(value() /= r.value());
    return *this;
}

void Rational::store(int numerator, int denominator) noexcept
{
    number<Platform::Int32>(0, numerator);
    number<Platform::Int32>(4, denominator);
}

void Rational::checkDefined(Rational const & r) const
{
    VANTRY_CHECK(this -> isUndefined () == false, InvalidValue, "Operation with undefined value.");
    VANTRY_CHECK(r.isUndefined () == false, InvalidValue, "Operation with undefined value.");
}

Rational operator+(Rational left, Rational const & right)
{
    return left += right;
}

Rational operator-(Rational left, Rational const & right)
{
    return left -= right;
}

Rational operator*(Rational left, Rational const & right)
{
    return left *= right;
}

Rational operator/(Rational left, Rational const & right)
{
    return left /= right;
}

template class Concrete<Rational, FixedSizeType<SimpleDataType, 8>>;

}}
