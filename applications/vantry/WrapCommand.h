#pragma once

#include "Command.h"
#include "WrapInput.h"
#include "WrapSettings.h"
#include "WrappedFile.h"

namespace Vantry { namespace Application {

/// `vantry wrap`: makes an MXF file from essence.
class WrapCommand : public Command
{
public:
    char const * name() const override { return "wrap"; }
    char const * summary() const override;
    char const * example() const override;
    char const * jsonForm() const override;
    void declareOptions(Options & options) override;
    void run(CommonOptions const & common, Output & output) override;
    std::string const & fileInHand() const override { return output_; }

private:
    using Files = std::vector<std::unique_ptr<WrappedFile>>;

    [[noreturn]] void wrongUsage(std::string const & problem) const;
    WrapSettings settings() const;
    void requireOutput() const;
    void requireFileName() const;
    std::vector<FoundEssence> findAll() const;
    void requireDataOnce(std::vector<FoundEssence> const & all) const;
    WrapSettings checked(WrapSettings const & settings);
    unsigned int number(std::optional<UInt64> const & given, char const * name, UInt64 most, unsigned int usual) const;

    WrappedFile::Inputs openInputs(WrapSettings const & settings) const;
    Templates::Rational<int> rateOf(WrapSettings const & settings, WrappedFile::Inputs const & inputs) const;
    void checkTimeCode(WrapSettings const & settings, Templates::Rational<int> const & rate) const;
    Files makeFiles(WrapSettings const & settings, CommonOptions const & common) const;
    void requireNoInput(std::filesystem::path const & target) const;
    std::filesystem::path targetOf(std::string const & input, Files const & files) const;
    bool makesFolder(WrapSettings const & settings) const { return settings.isAtom && essence_.size() > 1; }
    void write(Files const & files, bool quiet) const;
    void writeEssence(Files const & files, bool quiet) const;

    std::vector<std::string> inputs_;
    std::string output_;
    std::string pattern_ = "op1a";
    std::string wrapping_;
    std::string editRate_;
    std::string timeCode_;
    std::string name_;
    std::string indexPlace_ = "end";
    std::optional<UInt64> kagSize_;
    std::optional<UInt64> editUnitsPerPartition_;
    bool hasNoRIP_ = false;
    bool isD10_ = false;
    bool isDeterministic_ = false;
    bool force_ = false;

    // What the inputs hold, in the order of their tracks.
    std::vector<FoundEssence> essence_;
};

}}
