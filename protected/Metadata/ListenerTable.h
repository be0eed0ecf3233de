#pragma once

#include "Metadata/Listeners/MetadataIndexListener.h"
#include "Metadata/PartitionMetadataListener.h"
#include "Templates/SharedPtr.h"

#include <exception>
#include <set>

namespace Vantry { namespace Metadata {

/// The listeners of a PartitionMetadata, by address, and its index behind
/// them: what another listener refuses must not be in the index, since it
/// keeps pointers to values. Listeners may come and go while they are told.
class ListenerTable
{
public:
    using Listener = Templates::SharedPtr<PartitionMetadataListener>;
    using Index = Templates::SharedPtr<Listeners::MetadataIndexListener>;

    explicit ListenerTable(Index index);

    void add(Listener const & listener);
    void remove(Listener const & listener);
    void clear();

    /// Puts an index that is to listen in place of the other one.
    void replaceIndex(Index index);

    Listeners::MetadataIndexListener const & index() const { return *index_; }

    /// Whether the index hears of changes; it can be removed like any other.
    bool indexListens() const { return indexListens_; }

    /// Calls `call(listener)` for each listener, up to the first that throws.
    template <class Call>
    void tell(Call const & call) const
    {
        for (auto place = listeners_.begin(); place != listeners_.end();)
        {
            Listener const listener = *place;
            call(*listener);
            place = listeners_.upper_bound(listener);
        }
        if (indexListens_)
        {
            Index const index = index_;
            call(*index);
        }
    }

    /// Calls `call(listener)` for each listener, whichever throws; throws then
    /// what the first one did.
    template <class Call>
    void tellAll(Call const & call) const
    {
        std::exception_ptr failure;
        tell(
            [&](PartitionMetadataListener & listener)
            {
                try
                {
                    call(listener);
                }
                catch (...)
                {
                    if (!failure)
                        failure = std::current_exception();
                }
            });
        if (failure)
            std::rethrow_exception(failure);
    }

private:
    struct ByAddress
    {
        bool operator()(Listener const & left, Listener const & right) const noexcept
        {
            return std::less<>()(left.get(), right.get());
        }
    };

    std::set<Listener, ByAddress, Platform::Allocator<Listener>> listeners_;
    Index index_;
    bool indexListens_;
};

}}
