#pragma once

#include <nlohmann/json.hpp>

namespace Vantry { namespace Application {

class Output;

/// Shows what a file is on a page for people: first what it is and how long,
/// then tracks, essence and partitions, and what is wrong with it.
///
/// \param report  as reportOf makes it
/// \throws ReaderGone
/// \throws Failure when the text can't be written.
void writePlainPage(nlohmann::ordered_json const & report, Output & output);

}}
