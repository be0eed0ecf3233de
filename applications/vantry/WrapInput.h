#pragma once

#include "FoundEssence.h"
#include "GenericContainer/EssenceAnalyzer.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"

#include <functional>
#include <optional>
#include <string>

namespace Vantry { namespace Application {

/// How an input is to be taken.
enum class TakenAs
{
    FRAMES,

    /// Frames for as long as there are pictures: sound that is shorter goes on
    /// with silence, and data with nothing.
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
    WrapInput(FoundEssence found, TakenAs takenAs);

    /// Takes essence whose analyzer is there and preloaded; inputs that share
    /// one share a track.
    ///
    /// \param isLeft  whether there is essence that wasn't taken
    WrapInput(FoundEssence found, Analyzer analyzer, std::function<bool()> isLeft) :
        found_(std::move(found)), analyzer_(std::move(analyzer)), isLeft_(std::move(isLeft))
    {
    }

    std::string const & file() const { return found_.file; }
    bool isPicture() const { return isPictureKind(found_.kind); }

    /// "picture", "sound" or "data"
    char const * kind() const;

    Analyzer const & analyzer() const { return analyzer_; }

    /// Edit units per second where the essence brings them.
    std::optional<Templates::Rational<int>> rate() const;

    /// Whether there is essence that wasn't taken.
    bool isLeft() const { return isLeft_(); }

    /// Bytes of the input.
    UInt64 size() const { return found_.size; }

private:
    void open(TakenAs takenAs);
    void openPictures(bool isClip);
    void openSound(TakenAs takenAs);

    template <class Base>
    void openElements(TakenAs takenAs);

    FoundEssence found_;
    Analyzer analyzer_;
    std::function<bool()> isLeft_;
};

}}
