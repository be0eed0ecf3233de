#pragma once

#include "Metadata/MetadataSetImpl.h"
#include "Templates/auto_ptr.h"
#include "Types/Collection.h"
#include "Types/Reference.h"

#include <memory>

namespace Vantry { namespace Metadata {

class CollectionReferenceElement;
class ReferenceElement;

/// Copies a set and, if wanted, the sets below it. It keeps its place in the
/// tree on a stack of its own: trees may be deep.
class SetCloner
{
public:
    /// \param deep   copy also what the sets own
    /// \param owner  who gets the copies, or null
    SetCloner(bool deep, MetadataSetOwner * owner) : deep_(deep), owner_(owner), finished_(nullptr), repeats_(0) {}
    SetCloner(SetCloner const &) = delete;
    SetCloner & operator=(SetCloner const &) = delete;

    MetadataSet * clone(MetadataSet const & set);

private:
    // A set that is being copied.
    struct Frame
    {
        MetadataSet const * from;
        MetadataSet * to;

        // The next element: the valid ones, then the invalid ones.
        std::size_t element;

        // In an element that refers to several sets: the next reference, and
        // those to copies that are there already.
        unsigned int item;
        std::unique_ptr<Types::Collection> references;
    };

    void begin(MetadataSet const & set);
    void end();
    void checkIsTree(MetadataSet const & set);
    void copyElements();
    bool copyOwnedSet(ReferenceElement const & element);
    bool copyOwnedSets(CollectionReferenceElement const & element);
    Templates::auto_ptr<Types::Reference> referenceToFinished();
    void put(Templates::auto_ptr<Element> copy);
    MetadataSet const * find(Types::SimpleDataType const & reference) const;

    bool deep_;
    MetadataSetOwner * owner_;
    Templates::vector<Frame> frames_;

    // The sets that were met, and whether they are on the stack.
    Templates::map<MetadataSet const *, bool> met_;

    // The copy that the last set on the stack waits for.
    MetadataSet * finished_;

    // How often a set was met again.
    unsigned int repeats_;
};

}}
