#include "Metadata/StrongReferences.h"

#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/ReferenceElement.h"
#include "Types/Collection.h"
#include "Types/Reference.h"

namespace Vantry { namespace Metadata {

StrongReferences::~StrongReferences() = default;

void StrongReferences::visit(ReferenceElement const & element)
{
    if (element.value() != nullptr)
        element.value()->accept(*this);
}

void StrongReferences::visit(ArrayReferenceElement const & element)
{
    visitItems(element.value());
}

void StrongReferences::visit(BatchReferenceElement const & element)
{
    visitItems(element.value());
}

void StrongReferences::visitElements(MetadataSet const & set, bool withInvalid)
{
    for (MetadataSet::Entry const & entry : set)
        static_cast<Element const *>(entry.second)->accept(*this);
    if (!withInvalid)
        return;
    for (auto place = set.invalidBegin(); place != set.invalidEnd(); ++place)
        static_cast<Element const *>(*place)->accept(*this);
}

void StrongReferences::visitItems(Types::Collection const * collection)
{
    unsigned int const count = collection != nullptr ? collection->size() : 0;
    for (unsigned int i = 0; i < count; ++i)
        collection->at(i).accept(*this);
}

}}
