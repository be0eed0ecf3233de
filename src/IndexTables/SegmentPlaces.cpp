#include "IndexTables/SegmentPlaces.h"

#include <algorithm>

namespace Vantry { namespace IndexTables {

namespace {

Int64 const NO_END = std::numeric_limits<Int64>::max();

// The last edit unit of a segment. Both numbers are claims.
Int64 lastOf(Int64 start, Int64 duration)
{
    if (duration == 0 || start > NO_END - (duration - 1))
        return NO_END;
    return start + (duration - 1);
}

}

void SegmentPlaces::add(Int64 start, Int64 duration)
{
    // A negative duration covers nothing, but the segment has its number.
    Int64 const last = duration < 0 ? start : lastOf(start, duration);
    nodes_.push_back({start, last, last, NONE, NONE, 1});
    try
    {
        spans_.insert({start, duration});
    }
    catch (...)
    {
        nodes_.pop_back();
        throw;
    }
    if (duration >= 0)
        root_ = insert(root_, nodes_.size() - 1);
}

// Only along the border of those that start too late may a tree be searched
// in vain; elsewhere `lastInTree` tells whether it has what is wanted.
std::size_t SegmentPlaces::find(std::size_t root, Int64 position) const
{
    if (root == NONE || nodes_[root].lastInTree < position)
        return NONE;

    Node const & node = nodes_[root];
    if (node.start > position)
        return find(node.left, position);

    std::size_t const later = find(node.right, position);
    if (later != NONE)
        return later;
    return node.last >= position ? root : find(node.left, position);
}

std::size_t SegmentPlaces::insert(std::size_t root, std::size_t added)
{
    if (root == NONE)
        return added;

    Node & node = nodes_[root];
    std::size_t & branch = nodes_[added].start < node.start ? node.left : node.right;
    branch = insert(branch, added);
    update(root);
    return liftRight(liftLeft(root));
}

// Brings a left branch of the same level up.
std::size_t SegmentPlaces::liftLeft(std::size_t root)
{
    std::size_t const left = nodes_[root].left;
    if (levelOf(left) != nodes_[root].level)
        return root;

    nodes_[root].left = nodes_[left].right;
    nodes_[left].right = root;
    update(root);
    update(left);
    return left;
}

// Brings a right branch up where that and its own right one have the same
// level.
std::size_t SegmentPlaces::liftRight(std::size_t root)
{
    std::size_t const right = nodes_[root].right;
    if (right == NONE || levelOf(nodes_[right].right) != nodes_[root].level)
        return root;

    nodes_[root].right = nodes_[right].left;
    nodes_[right].left = root;
    ++nodes_[right].level;
    update(root);
    update(right);
    return right;
}

void SegmentPlaces::update(std::size_t root)
{
    Node & node = nodes_[root];
    node.lastInTree = node.last;
    for (std::size_t branch : {node.left, node.right})
        if (branch != NONE)
            node.lastInTree = std::max(node.lastInTree, nodes_[branch].lastInTree);
}

}}
