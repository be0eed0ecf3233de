#include "OutputFolder.h"

#include "Failure.h"

namespace Vantry { namespace Application {

OutputFolder::OutputFolder(std::filesystem::path path) : path_(std::move(path)), isNew_(false)
{
    std::error_code error;
    isNew_ = std::filesystem::create_directories(path_, error);
    if (error)
        throw Failure(ExitStatus::FAILED, path_.string(), "can't be made: " + error.message());
}

OutputFolder::~OutputFolder()
{
    std::error_code ignored;
    if (isNew_)
        std::filesystem::remove(path_, ignored);
}

}}
