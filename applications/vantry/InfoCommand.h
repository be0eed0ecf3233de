#pragma once

#include "Command.h"

namespace Vantry { namespace Application {

/// `vantry info`: tells what a file is, or shows the tree of its metadata sets.
class InfoCommand : public Command
{
public:
    char const * name() const override { return "info"; }
    char const * summary() const override;
    char const * example() const override;
    void declareOptions(Options & options) override;
    void run(CommonOptions const & common, Output & output) override;
    std::string const & fileInHand() const override { return file_; }

private:
    void showFile(CommonOptions const & common, Output & output) const;
    void showMetadata(CommonOptions const & common, Output & output) const;

    std::string file_;
    bool metadata_ = false;
};

}}
