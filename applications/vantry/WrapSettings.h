#pragma once

#include "Templates/Rational.h"
#include "Utils/TimeCode.h"

#include <optional>
#include <string>

namespace Vantry { namespace Application {

/// Where a file has its index.
enum class IndexPlace
{
    HEADER, ///< in the header partition
    BODY,   ///< in each partition, that of the essence before it
    END     ///< behind the essence
};

/// A time code as the user writes it; which frame it means depends on the
/// rate.
struct WrittenTimeCode
{
    unsigned int hours;
    unsigned int minutes;
    unsigned int seconds;
    unsigned int frames;
    bool dropFrame;

    /// "HH:MM:SS:FF", with a semicolon ahead of the frames for drop frame; none
    /// for anything else.
    static std::optional<WrittenTimeCode> of(std::string const & text);

    /// \throws Exceptions::InvalidValue when the rate has no such time code.
    Utils::TimeCode at(unsigned char framesPerSecond) const;
};

/// "25/1" or "25", where both numbers are above 0; none for anything else.
std::optional<Templates::Rational<int>> editRateOf(std::string const & text);

/// Whole frames per second that a time code counts at a rate; none where no
/// time code can.
std::optional<unsigned char> timeCodeBase(Templates::Rational<int> const & rate);

/// How a file is to be.
struct WrapSettings
{
    static constexpr unsigned int USUAL_KAG_SIZE = 512;

    bool isAtom = false;
    bool isClip = false;
    bool isD10 = false;
    std::optional<Templates::Rational<int>> editRate;
    std::optional<WrittenTimeCode> timeCode;
    std::string name;
    unsigned int kagSize = USUAL_KAG_SIZE;
    unsigned int editUnitsPerPartition = 0; ///< 0 for all in one
    bool hasRIP = true;
    IndexPlace indexPlace = IndexPlace::END;
    bool isDeterministic = false;
};

}}
