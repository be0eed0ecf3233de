#include "Delivery.h"

#include "Failure.h"

#include <fmt/format.h>

#include <unistd.h>

namespace Vantry { namespace Application {

namespace fs = std::filesystem;

namespace {

/// Not seen in a listing, and not that of another run.
fs::path draftOf(fs::path const & target)
{
    return target.parent_path() / fmt::format(".{}.{}.part", target.filename().string(), ::getpid());
}

}

Delivery::Delivery(fs::path target, bool force) :
    target_(std::move(target)), draft_(draftOf(target_)), force_(force), isPublished_(false)
{
    requireFree();
}

Delivery::~Delivery()
{
    std::error_code ignored;
    if (!isPublished_)
        fs::remove_all(draft_, ignored);
}

void Delivery::requireFree() const
{
    std::error_code ignored;
    if (!fs::exists(fs::symlink_status(target_, ignored)))
        return;
    if (fs::is_other(target_, ignored))
        throw Failure(ExitStatus::FAILED, target_.string(), "is no plain file, and stays as it is");
    if (!force_)
        throw Failure(ExitStatus::FAILED, target_.string(), "is there already, and kept without --force");
}

void Delivery::publish()
{
    requireFree();
    std::error_code error;
    if (fs::is_directory(draft_, error))
        fs::remove_all(target_, error);
    fs::rename(draft_, target_, error);
    if (error)
        throw Failure(ExitStatus::FAILED, target_.string(), "can't be put in place: " + error.message());
    isPublished_ = true;
}

}}
