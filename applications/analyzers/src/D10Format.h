#pragma once

#include "Types/UniversalLabel.h"
#include "VideoHeaders.h"

namespace Vantry { namespace Analyzers {

/// One of the six formats of D-10 (SMPTE 356M, 386M): three bit rates in the
/// 625-line system, and three in the 525-line system.
class D10Format
{
public:
    /// The format that a stream has.
    ///
    /// \throws Exceptions::InvalidFormat for a stream of none; the message
    ///         says what is wrong.
    static D10Format of(SequenceHeader const & sequence);

    /// Bytes of a picture at most.
    unsigned int pictureSize() const noexcept { return pictureSize_; }

    unsigned int megabitsPerSecond() const noexcept { return megabits_; }

    /// Of the container, which is the same for picture and sound.
    Types::UniversalLabel containerLabel() const;

    Types::UniversalLabel codingLabel() const;

    /// Lines of a frame ahead of those that are shown, which carry data, and
    /// lines that are shown.
    unsigned int dataLines() const noexcept;
    unsigned int shownLines() const noexcept;

private:
    D10Format(unsigned int megabits, bool is625, Templates::Rational<int> const & rate);

    unsigned int megabits_;
    bool is625_;
    unsigned int pictureSize_;
};

}}
