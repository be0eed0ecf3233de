#pragma once

#include <filesystem>

namespace Vantry { namespace Application {

/// A file or folder that is made under another name, next to the one that it
/// gets when it is complete. It is gone when that doesn't come about.
class Delivery
{
public:
    /// \param target  where it is to be in the end
    /// \param force   whether it may take the place of what is there
    /// \throws Failure when it may not.
    Delivery(std::filesystem::path target, bool force);
    Delivery(Delivery const &) = delete;
    Delivery & operator=(Delivery const &) = delete;
    ~Delivery();

    std::filesystem::path const & target() const { return target_; }

    /// Where to write for the time being.
    std::filesystem::path const & draft() const { return draft_; }

    /// Gives the draft its name.
    ///
    /// \throws Failure when that can't be done.
    void publish();

private:
    void requireFree() const;

    std::filesystem::path target_;
    std::filesystem::path draft_;
    bool force_;
    bool isPublished_;
};

}}
