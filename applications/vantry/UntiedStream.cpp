#include "UntiedStream.h"

#include "ElementContent.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Types/UniversalLabel.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace Vantry { namespace Application {

namespace Structural = Metadata::Structural;
namespace ULs = Metadata::Structural::StructuralMetadataULs;

bool isFilePackage(Structural::GenericPackage const & package)
{
    if (dynamic_cast<Structural::MaterialPackage const *>(&package) != nullptr)
        return false;
    Metadata::MetadataSet const * const descriptor = ownedBy(package, ULs::descriptor());
    return descriptor != nullptr && valueOf<Types::UniversalLabel>(*descriptor, ULs::essenceContainer()) != nullptr;
}

std::string StreamChoice::text() const
{
    return fmt::format("the metadata don't tell where the essence of their file package is: body SID {} is taken",
                       bodySID);
}

StreamChoice chooseStream(std::vector<StreamStart> const & streams, std::vector<unsigned> const & trackNumbers)
{
    std::vector<StreamStart> matching;
    std::copy_if(
        streams.begin(), streams.end(), std::back_inserter(matching),
        [&](StreamStart const & stream)
        { return std::find(trackNumbers.begin(), trackNumbers.end(), stream.elementNumber) != trackNumbers.end(); });
    std::vector<StreamStart> const & choice = matching.empty() ? streams : matching;
    return {choice.front().bodySID, choice.size() > 1};
}

}}
