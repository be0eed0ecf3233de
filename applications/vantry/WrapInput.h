#pragma once

#include "GenericContainer/EssenceAnalyzer.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"

#include <functional>
#include <optional>
#include <string>

namespace Vantry { namespace Application {

/// What an input can be.
enum class InputKind
{
    WAVE,
    MPEG2_VIDEO,
    JPEG_2000 ///< a folder with a codestream for each picture
};

/// Tells by the content of a file or folder what it is.
///
/// \throws Failure when it can't be read or is nothing of these.
InputKind recogniseInput(std::string const & file);

/// How an input is to be taken.
enum class TakenAs
{
    FRAMES,

    /// Frames for as long as there are pictures: sound that is shorter goes on
    /// with silence.
    FRAMES_BESIDE_PICTURES,

    CLIP
};

/// Essence that becomes a track. What the analyzer throws, while it reads,
/// names the file.
class WrapInput
{
public:
    using Analyzer = Templates::SharedPtr<GenericContainer::EssenceAnalyzer>;

    /// Opens the input and reads its format.
    ///
    /// \throws Failure when it isn't what it seemed to be, or is of a kind
    ///         that can't be wrapped.
    WrapInput(std::string file, InputKind kind, TakenAs takenAs);

    std::string const & file() const { return file_; }
    bool isPicture() const { return kind_ != InputKind::WAVE; }

    /// "picture" or "sound"
    char const * kind() const { return isPicture() ? "picture" : "sound"; }

    Analyzer const & analyzer() const { return analyzer_; }

    /// Edit units per second where the essence brings them.
    std::optional<Templates::Rational<int>> rate() const;

    /// Whether there is essence that wasn't taken.
    bool isLeft() const { return isLeft_(); }

    /// Bytes of the input.
    UInt64 size() const { return size_; }

private:
    void openPictures(bool isClip);
    void openSound(TakenAs takenAs);

    std::string file_;
    InputKind kind_;
    UInt64 size_;
    Analyzer analyzer_;
    std::function<bool()> isLeft_;
};

}}
