#pragma once

namespace Vantry { namespace Metadata {

class MetadataSetFactory;

/// Registers the classes of structural metadata under their keys.
void registerStructuralCreators(MetadataSetFactory & factory);

}}
