#pragma once

#include "Templates/Rational.h"
#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"

namespace Vantry { namespace Types {

/// A fraction, as edit rates are: numerator and denominator, signed numbers of
/// 32 bits, 8 bytes in all.
///
/// It keeps the form it was given, so that 50/2 is written as 50/2; it
/// compares by value. A denominator of 0 means that the fraction is undefined,
/// which is no failure until something is computed with it.
class VANTRY_EXPORT Rational : public Concrete<Rational, FixedSizeType<SimpleDataType, 8>>
{
public:
    /// Reads the fraction.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit Rational(KLV::Value & source) : Concrete(source) {}

    Rational(int numerator, int denominator) noexcept { store(numerator, denominator); }

    int numerator() const noexcept { return number<Platform::Int32>(0); }
    int denominator() const noexcept { return number<Platform::Int32>(4); }

    /// Whether the denominator is 0.
    bool isUndefined() const noexcept { return denominator() == 0; }

    /// The fraction to compute with; 0/1 when it is undefined.
    ///
    /// \throws Exceptions::InvalidValue "Type size exceeded" when it has -2^31
    ///         in its lowest terms and the sign of that would change.
    Templates::Rational<int> value() const;

    /// The quotient; the numerator alone when the fraction is undefined.
    double toDouble() const noexcept;

    /// Reduces the fraction and leaves the denominator positive. Nothing
    /// changes when it is undefined or zero, or when a number would no longer
    /// fit into 32 bits.
    void normalize() noexcept;

    /// \throws Exceptions::InvalidValue when a side is undefined, or for a
    ///         division by zero.
    Rational & operator+=(Rational const & r);
    Rational & operator-=(Rational const & r);
    Rational & operator*=(Rational const & r);
    Rational & operator/=(Rational const & r);

    /// Compare by value; undefined fractions are 0 here.
    bool equals(Rational const & other) const noexcept;
    bool isLess(Rational const & other) const noexcept;

private:
    void store(int numerator, int denominator) noexcept;
    void store(Templates::Rational<int> const & value) noexcept { store(value.numerator(), value.denominator()); }

    // Both sides of an operation have to have a value.
    void checkDefined(Rational const & r) const;
};

/// The result is reduced.
///
/// \throws Exceptions::InvalidValue when a side is undefined, or for a
///         division by zero.
VANTRY_EXPORT Rational operator+(Rational left, Rational const & right);
VANTRY_EXPORT Rational operator-(Rational left, Rational const & right);
VANTRY_EXPORT Rational operator*(Rational left, Rational const & right);
VANTRY_EXPORT Rational operator/(Rational left, Rational const & right);

extern template class Concrete<Rational, FixedSizeType<SimpleDataType, 8>>;

}}
