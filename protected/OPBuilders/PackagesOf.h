#pragma once

#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Templates/Containers.h"

namespace Vantry { namespace OPBuilders {

/// The packages of a kind, in the order of their storage.
template <class Package>
Templates::vector<Package *> packagesOf(Metadata::Structural::ContentStorage const & storage)
{
    Templates::vector<Package *> packages;
    for (unsigned int i = 0; i < storage.packagesCount(); ++i)
        if (Package * const package = dynamic_cast<Package *>(storage.package(i)))
            packages.push_back(package);
    return packages;
}

}}
