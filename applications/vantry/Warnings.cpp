#include "Warnings.h"

#include <algorithm>
#include <functional>

namespace Vantry { namespace Application {

namespace {

std::size_t const MOST_OF_A_KIND = 8;

/// A warning without numbers and identifiers.
std::string kindOf(std::string const & warning)
{
    std::string kind;
    for (std::size_t start = 0; start < warning.size();)
    {
        std::size_t const end = std::min(warning.find(' ', start), warning.size() - 1) + 1;
        std::string const word = warning.substr(start, end - start);
        kind += word.find_first_of("0123456789") == std::string::npos ? word : "# ";
        start = end;
    }
    return kind;
}

}

void Warnings::add(std::string const & warning)
{
    if (!known_.insert(std::hash<std::string>()(warning)).second)
        return;

    Kind & kind = kinds_[kindOf(warning)];
    if (++kind.count > MOST_OF_A_KIND)
        return;
    kind.last = told_.size();
    told_.push_back(warning);
}

std::vector<std::string> Warnings::all() const
{
    std::vector<std::string> all = told_;
    for (auto const & [name, kind] : kinds_)
        if (kind.count > MOST_OF_A_KIND)
            all[kind.last] += fmt::format("; {} more like this", kind.count - MOST_OF_A_KIND);
    return all;
}

}}
