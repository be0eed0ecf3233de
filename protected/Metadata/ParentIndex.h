#pragma once

#include "Metadata/SetRegister.h"
#include "Types/UUID.h"

namespace Vantry { namespace Metadata {

/// Which sets own a set. It is made when it is asked for and kept until a
/// reference changes.
class ParentIndex
{
public:
    using Owners = Templates::multimap<Types::UUID, MetadataSet *>;
    using Range = Templates::pair<Owners::const_iterator, Owners::const_iterator>;

    /// A change of sets or references that isn't made before this one's end,
    /// or not even then: what is asked for meanwhile isn't kept.
    class Change
    {
    public:
        explicit Change(ParentIndex & index) : Change(&index) {}

        /// A change of an element.
        Change(ParentIndex & index, Element const & element);
        Change(Change const &) = delete;
        Change & operator=(Change const &) = delete;
        ~Change();

    private:
        explicit Change(ParentIndex * index);

        ParentIndex * index_;
    };

    /// The owners of what has an identifier, in the order of `sets`. The range
    /// is good until the next call or change.
    Range find(Types::UUID const & instanceUID, SetRegister const & sets);

private:
    void make(SetRegister const & sets);
    void drop();

    Owners owners_;
    bool made_ = false;
    unsigned int changes_ = 0;
};

}}
