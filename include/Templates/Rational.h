#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace Templates {

/// The integer that holds any product of two `T`, and the sum of two such.
template <class T>
struct DoubleWidth;

template <>
struct DoubleWidth<int>
{
    using Type = Int64;
};

template <>
struct DoubleWidth<Int64>
{
    __extension__ typedef __int128 Type;
};

/// An exact fraction in lowest terms with a denominator above zero, for `int`
/// and `Int64`.
///
/// Intermediate results have double width: an operation fails only when its
/// result in lowest terms doesn't fit. Each function that takes a
/// denominator, or divides, throws
///
/// - Exceptions::InvalidValue "denominator != 0: Division by 0.", unless the
///   numerator is 0, which gives 0/1;
/// - Exceptions::InvalidValue "Type size exceeded".
template <class T>
class VANTRY_EXPORT Rational
{
public:
    VANTRY_CLASS_ALLOCATION

    Rational() noexcept : numerator_(0), denominator_(1) {}
    Rational(T whole) noexcept : numerator_(whole), denominator_(1) {}
    Rational(T numerator, T denominator) : Rational() { reduce(numerator, denominator); }

    Rational & operator=(T whole) noexcept { return *this = Rational(whole); }
    Rational & assign(T numerator, T denominator) { return reduce(numerator, denominator); }

    T numerator() const noexcept { return numerator_; }
    T denominator() const noexcept { return denominator_; }

    /// Whether this is 0.
    bool operator!() const noexcept { return numerator_ == 0; }

    /// Adds a whole.
    Rational & operator++() { return *this += Rational(1); }

    /// Takes a whole away.
    Rational & operator--() { return *this -= Rational(1); }

    Rational & operator+=(Rational const & other)
    {
        return reduce(product(numerator_, other.denominator_) + product(other.numerator_, denominator_),
                      product(denominator_, other.denominator_));
    }

    Rational & operator-=(Rational const & other)
    {
        return reduce(product(numerator_, other.denominator_) - product(other.numerator_, denominator_),
                      product(denominator_, other.denominator_));
    }

    Rational & operator*=(Rational const & other)
    {
        return reduce(product(numerator_, other.numerator_), product(denominator_, other.denominator_));
    }

    Rational & operator/=(Rational const & other)
    {
        return reduce(product(numerator_, other.denominator_), product(denominator_, other.numerator_));
    }

    Rational & operator+=(T whole) { return *this += Rational(whole); }
    Rational & operator-=(T whole) { return *this -= Rational(whole); }
    Rational & operator*=(T whole) { return *this *= Rational(whole); }
    Rational & operator/=(T whole) { return *this /= Rational(whole); }

    friend Rational operator+(Rational left, Rational const & right) { return left += right; }
    friend Rational operator-(Rational left, Rational const & right) { return left -= right; }
    friend Rational operator*(Rational left, Rational const & right) { return left *= right; }
    friend Rational operator/(Rational left, Rational const & right) { return left /= right; }

    bool operator==(Rational const & other) const noexcept
    {
        return numerator_ == other.numerator_ && denominator_ == other.denominator_;
    }

    bool operator<(Rational const & other) const noexcept
    {
        return product(numerator_, other.denominator_) < product(other.numerator_, denominator_);
    }

    bool operator!=(Rational const & other) const noexcept { return !(*this == other); }
    bool operator>(Rational const & other) const noexcept { return other < *this; }
    bool operator<=(Rational const & other) const noexcept { return !(other < *this); }
    bool operator>=(Rational const & other) const noexcept { return !(*this < other); }

    bool operator==(T whole) const noexcept { return numerator_ == whole && denominator_ == 1; }

    /// With a whole number of the same sign, a fraction is cut to its whole
    /// part first. That shows below zero only: -3/2 is not less than -1.
    bool operator<(T whole) const noexcept
    {
        if (numerator_ < 0 && whole >= 0)
            return true;
        if (numerator_ >= 0 && whole <= 0)
            return false;
        return numerator_ / denominator_ < whole;
    }

    bool operator!=(T whole) const noexcept { return !(*this == whole); }
    bool operator>(T whole) const noexcept { return *this != whole && !(*this < whole); }
    bool operator<=(T whole) const noexcept { return *this == whole || *this < whole; }
    bool operator>=(T whole) const noexcept { return !(*this < whole); }

private:
    using Wide = typename DoubleWidth<T>::Type;

    static Wide product(T left, T right) noexcept { return static_cast<Wide>(left) * right; }

    Rational & reduce(Wide numerator, Wide denominator);

    T numerator_;
    T denominator_;
};

extern template class Rational<int>;
extern template class Rational<Int64>;

}}
