#include "Metadata/ParentIndex.h"

#include "Metadata/CollectionReferenceElement.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/StrongReferences.h"
#include "Types/StrongReference.h"

namespace Vantry { namespace Metadata {

namespace {

bool refers(Element const & element)
{
    return dynamic_cast<ReferenceElement const *>(&element) != nullptr ||
           dynamic_cast<CollectionReferenceElement const *>(&element) != nullptr;
}

// Enters an owner for each set that it refers to.
class EnterOwner final : public StrongReferences
{
public:
    explicit EnterOwner(ParentIndex::Owners & owners) : owners_(owners) {}

    void enter(MetadataSet & owner)
    {
        owner_ = &owner;
        visitElements(owner, false);
    }

    using StrongReferences::visit;

    void visit(Types::StrongReference const & reference) override { owners_.emplace(reference.uuid(), owner_); }

private:
    ParentIndex::Owners & owners_;
    MetadataSet * owner_ = nullptr;
};

}

// While there is no index, whether the element refers to anything needs no
// answer.
ParentIndex::Change::Change(ParentIndex & index, Element const & element) :
    Change(!index.made_ || refers(element) ? &index : nullptr)
{
}

ParentIndex::Change::Change(ParentIndex * index) : index_(index)
{
    if (index_ == nullptr)
        return;
    index_->drop();
    ++index_->changes_;
}

ParentIndex::Change::~Change()
{
    if (index_ == nullptr)
        return;
    --index_->changes_;
    index_->drop();
}

ParentIndex::Range ParentIndex::find(Types::UUID const & instanceUID, SetRegister const & sets)
{
    if (!made_ || changes_ != 0)
        make(sets);
    return owners_.equal_range(instanceUID);
}

void ParentIndex::make(SetRegister const & sets)
{
    drop();
    EnterOwner visitor(owners_);
    for (MetadataSet * set : sets.row())
        visitor.enter(*set);
    made_ = true;
}

void ParentIndex::drop()
{
    owners_.clear();
    made_ = false;
}

}}
