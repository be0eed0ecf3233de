#pragma once

#include "Platform/Allocator.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

#include <cstddef>
#include <functional>
#include <limits>
#include <set>

namespace Vantry { namespace IndexTables {

/// The edit units that segments cover, in an order that finds the segment of
/// one in logarithmic time, whatever gaps and overlaps there are.
///
/// Segments go by numbers, from 0 in the order in which they are added.
class SegmentPlaces
{
public:
    static constexpr std::size_t NONE = std::numeric_limits<std::size_t>::max();

    /// Whether a segment has these numbers already.
    bool contains(Int64 start, Int64 duration) const { return spans_.count({start, duration}) != 0; }

    /// Adds a segment; duration 0 means that it has no end.
    void add(Int64 start, Int64 duration);

    /// The segment that covers an edit unit, or NONE. Of several it is the one
    /// that starts last, and of these the one added last.
    std::size_t find(Int64 position) const { return find(root_, position); }

private:
    using Span = Templates::pair<Int64, Int64>;

    // An AA tree, which lies in the order of starts and is balanced by levels.
    struct Node
    {
        Int64 start;
        Int64 last;
        Int64 lastInTree; // the highest `last` in the tree below this node
        std::size_t left;
        std::size_t right;
        unsigned level;
    };

    std::size_t find(std::size_t root, Int64 position) const;
    std::size_t insert(std::size_t root, std::size_t added);
    std::size_t liftLeft(std::size_t root);
    std::size_t liftRight(std::size_t root);
    void update(std::size_t root);
    unsigned levelOf(std::size_t root) const { return root == NONE ? 0 : nodes_[root].level; }

    Templates::vector<Node> nodes_;
    std::size_t root_ = NONE;
    std::set<Span, std::less<>, Platform::Allocator<Span>> spans_;
};

}}
