#pragma once

#include "Platform/Export.h"
#include "Types/UniversalLabel.h"

/// Labels of attributes that all header metadata rest on.
namespace Vantry { namespace Metadata { namespace MetadataULs {

/// Sixteen zeros, for what has no label.
VANTRY_EXPORT Types::UniversalLabel const & null() noexcept;

/// What references to a set name.
VANTRY_EXPORT Types::UniversalLabel const & instanceUID() noexcept;

/// The generation that an Identification stands for.
VANTRY_EXPORT Types::UniversalLabel const & thisGenerationUID() noexcept;

/// The number of a track in its package.
VANTRY_EXPORT Types::UniversalLabel const & trackID() noexcept;

/// The UMID of a package.
VANTRY_EXPORT Types::UniversalLabel const & packageUID() noexcept;

/// The package that an EssenceContainerData describes.
VANTRY_EXPORT Types::UniversalLabel const & linkedPackageUID() noexcept;

/// The packages of a ContentStorage.
VANTRY_EXPORT Types::UniversalLabel const & packages() noexcept;

}}}
