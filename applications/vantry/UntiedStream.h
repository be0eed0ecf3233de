#pragma once

#include <string>
#include <vector>

namespace Vantry {
namespace Metadata { namespace Structural {
class GenericPackage;
}}

namespace Application {

/// Whether a package describes essence in a file.
bool isFilePackage(Metadata::Structural::GenericPackage const & package);

/// How a stream of essence begins.
struct StreamStart
{
    unsigned bodySID;
    unsigned elementNumber;
};

/// The stream that is taken for the essence of the only file package, where the
/// metadata tie it to none.
struct StreamChoice
{
    unsigned bodySID;

    /// Others would do as well.
    bool isGuess;

    /// What is to be said of it.
    std::string text() const;
};

/// Takes the only stream that begins with an element of one of the tracks, else
/// the first of all.
///
/// \param streams  one at least, in file order
StreamChoice chooseStream(std::vector<StreamStart> const & streams, std::vector<unsigned> const & trackNumbers);

}
}
