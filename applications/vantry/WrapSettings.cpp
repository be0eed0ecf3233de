#include "WrapSettings.h"

#include <charconv>

namespace Vantry { namespace Application {

namespace {

/// Takes a number of so many digits off the front of a text.
bool takeNumber(char const *& at, char const * end, std::ptrdiff_t digits, unsigned int & number)
{
    if (end - at < digits)
        return false;
    auto const [behind, error] = std::from_chars(at, at + digits, number);
    bool const isTaken = error == std::errc() && behind == at + digits;
    at += digits;
    return isTaken;
}

bool takeOneOf(char const *& at, char const * end, std::string const & marks)
{
    return at != end && marks.find(*at++) != std::string::npos;
}

/// The whole text as a number above 0.
bool isPositive(char const * at, char const * end, int & number)
{
    auto const [behind, error] = std::from_chars(at, end, number);
    return error == std::errc() && behind == end && number > 0;
}

}

std::optional<WrittenTimeCode> WrittenTimeCode::of(std::string const & text)
{
    WrittenTimeCode code{};
    char const * at = text.data();
    char const * const end = at + text.size();
    bool const isWhole = takeNumber(at, end, 2, code.hours) && takeOneOf(at, end, ":") &&
                         takeNumber(at, end, 2, code.minutes) && takeOneOf(at, end, ":") &&
                         takeNumber(at, end, 2, code.seconds) && takeOneOf(at, end, ":;") &&
                         takeNumber(at, end, end - at, code.frames);
    if (!isWhole || code.frames > 255)
        return std::nullopt;
    code.dropFrame = text.find(';') != std::string::npos;
    return code;
}

Utils::TimeCode WrittenTimeCode::at(unsigned char framesPerSecond) const
{
    auto const byte = [](unsigned int number)
    {
        return static_cast<unsigned char>(number);
    };

    // There a time code counts pairs of frames.
    bool const inPairs = framesPerSecond == 50 || framesPerSecond == 60;
    return {framesPerSecond,
            byte(hours),
            byte(minutes),
            byte(seconds),
            byte(inPairs ? frames / 2 : frames),
            dropFrame,
            inPairs && frames % 2 != 0};
}

std::optional<Templates::Rational<int>> editRateOf(std::string const & text)
{
    std::size_t const slash = text.find('/');
    char const * const end = text.data() + text.size();
    char const * const endOfFirst = slash == std::string::npos ? end : text.data() + slash;
    int numerator = 0;
    int denominator = 1;
    if (!isPositive(text.data(), endOfFirst, numerator) ||
        (endOfFirst != end && !isPositive(endOfFirst + 1, end, denominator)))
        return std::nullopt;
    return Templates::Rational<int>(numerator, denominator);
}

std::optional<unsigned char> timeCodeBase(Templates::Rational<int> const & rate)
{
    Int64 const denominator = rate.denominator();
    Int64 const rounded = (rate.numerator() + denominator / 2) / denominator;
    if (rounded < 1 || rounded > 255)
        return std::nullopt;
    return static_cast<unsigned char>(rounded);
}

}}
