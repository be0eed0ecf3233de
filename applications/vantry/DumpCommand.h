#pragma once

#include "Command.h"

namespace Vantry { namespace Application {

/// `vantry dump`: lists every packet of a file or stream.
class DumpCommand : public Command
{
public:
    char const * name() const override { return "dump"; }
    char const * summary() const override;
    char const * example() const override;
    char const * jsonForm() const override;
    void declareOptions(Options & options) override;
    void run(CommonOptions const & common, Output & output) override;
    std::string const & fileInHand() const override { return file_; }

private:
    std::string file_;
};

}}
