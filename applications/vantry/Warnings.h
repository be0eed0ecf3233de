#pragma once

#include <fmt/format.h>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Vantry { namespace Application {

/// What is wrong with a file, each fault once, in the order in which they were
/// found. Of faults that differ by their numbers alone the first ones are told;
/// a file can have millions.
class Warnings
{
public:
    void add(std::string const & warning);

    void add(std::vector<std::string> const & warnings)
    {
        for (std::string const & warning : warnings)
            add(warning);
    }

    std::vector<std::string> all() const;

private:
    struct Kind
    {
        std::size_t count = 0;
        std::size_t last = 0; // that was told
    };

    std::vector<std::string> told_;
    std::unordered_map<std::string, Kind> kinds_;
    std::unordered_set<std::size_t> known_; // by their hashes
};

/// Faults of one kind, of which the first stands for all.
class FaultGroup
{
public:
    explicit FaultGroup(Warnings & warnings) : warnings_(warnings) {}

    /// Enters them among the warnings.
    void tell() const
    {
        if (count_ == 1)
            warnings_.add(first_);
        else if (count_ > 1)
            warnings_.add(fmt::format("{}; {} more like this", first_, count_ - 1));
    }

    template <class... Values>
    void add(fmt::format_string<Values...> text, Values &&... values)
    {
        if (++count_ == 1)
            first_ = fmt::format(text, std::forward<Values>(values)...);
    }

private:
    Warnings & warnings_;
    std::string first_;
    std::size_t count_ = 0;
};

}}
