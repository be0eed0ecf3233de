#pragma once

#include "Command.h"
#include "ContainerUnwrap.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace Vantry {
namespace MXFIO {
class Reader2;
}

namespace Application {

/// `vantry unwrap`: writes the essence of each track to a file of its own.
class UnwrapCommand : public Command
{
public:
    char const * name() const override { return "unwrap"; }
    char const * summary() const override;
    char const * example() const override;
    char const * jsonForm() const override;
    void declareOptions(Options & options) override;
    void run(CommonOptions const & common, Output & output) override;
    std::string const & fileInHand() const override { return file_; }

private:
    /// What is to be done in one walk over the file.
    struct Job
    {
        std::vector<std::unique_ptr<ContainerUnwrap>> containers;

        /// Where the walk begins, and in which container; null outside.
        UInt64 start = 0;
        ContainerUnwrap * startsIn = nullptr;
    };

    bool toStandardOutput() const { return folder_ == "-"; }
    EditUnitRange range() const;
    bool isWanted(EssenceTrack const & track) const;
    [[noreturn]] void wrongUsage(std::string const & problem) const;
    void checkUsage(CommonOptions const & common) const;
    void checkTracks(std::vector<EssenceContainer> const & containers) const;

    Job prepare(MXFIO::Reader2 & reader, std::vector<EssenceContainer> const & containers) const;
    ContainerUnwrap::Tracks makeTracks(EssenceContainer const & container, std::vector<std::string> & names) const;
    std::unique_ptr<EssenceOutput> makeTrackOutput(EssenceTrack const & track, std::vector<std::string> & names) const;
    void add(Job & job, MXFIO::Reader2 & reader, EssenceContainer const & container,
             ContainerUnwrap::Tracks tracks) const;

    /// Both tell what is wrong with the file, or nothing.
    std::string walk(Job const & job, bool quiet) const;
    std::string faultOf(Job const & job, std::string const & fault) const;

    void deliver(Job const & job, std::string const & fault) const;
    void report(Job const & job, bool asJson, Output & output) const;

    std::string file_;
    std::string folder_;
    std::vector<unsigned> trackIDs_;
    std::optional<UInt64> from_;
    std::optional<UInt64> count_;
    bool force_ = false;
};

}
}
