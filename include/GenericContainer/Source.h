#pragma once

#include "MXFIO/KLVSource.h"
#include "Metadata/Structural/Declarations.h"
#include "Templates/auto_ptr.h"
#include "Types/Declarations.h"

namespace Vantry {
namespace MXFIO {
class IndexTableGenerator;
}

namespace GenericContainer {

/// Gives the bytes of an essence container: a content package with each piece
/// or, where essence is wrapped by the clip, a part of the clip.
class VANTRY_EXPORT Source : public MXFIO::KLVSource
{
public:
    /// Completes the metadata of the essence, once, when no more will be
    /// asked for.
    virtual void finalize() = 0;

    /// Describes the essence.
    ///
    /// \throws Exceptions::InvalidState when there is no package.
    virtual Metadata::Structural::SourcePackage & sourcePackage() = 0;

    virtual Types::UniversalLabel const & essenceContainerUL() = 0;

    /// Content packages per second.
    virtual Templates::Rational<int> const & packageRate() = 0;

    /// Whether all content packages have the same size.
    virtual bool isCBE() const = 0;

    /// What is told of each content package, to make index tables; may be
    /// null.
    virtual MXFIO::IndexTableGenerator * indexTableGenerator() = 0;
    virtual void indexTableGenerator(Templates::auto_ptr<MXFIO::IndexTableGenerator> generator) = 0;
};

}
}
