#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Containers.h"

namespace Vantry { namespace OPBuilders {

class OPAtomBuilder;

/// Makes OP-Atom files belong together: in each, the material package knows the
/// tracks of all.
///
/// Builders are lent. What one gets from another refers to the other's
/// dictionary, so they best share one.
class VANTRY_EXPORT OPAtomAggregator
{
public:
    VANTRY_CLASS_ALLOCATION

    OPAtomAggregator();
    OPAtomAggregator(OPAtomAggregator const &) = delete;
    OPAtomAggregator & operator=(OPAtomAggregator const &) = delete;
    ~OPAtomAggregator();

    /// Adds the builder of a file, which outlives the aggregator.
    void addOPAtomBuilder(OPAtomBuilder * builder);

    /// Changes the metadata of all builders, once, when they are complete and
    /// up to date, and ahead of writing.
    ///
    /// Material packages get the identifier of the first builder's. The track
    /// of picture or sound of the n-th builder gets the number n, from 0, in
    /// all packages; time code tracks come first and get the number 0. Then
    /// each material package gets copies of the tracks that the others have,
    /// each at its place n + 1.
    ///
    /// \throws Exceptions::OperationNotAllowed for fewer than two builders.
    /// \throws Exceptions::NotFound when a builder has no material package;
    ///         nothing is changed then.
    void commit();

private:
    Templates::vector<OPAtomBuilder *> opAtomBuilders_;
};

}}
