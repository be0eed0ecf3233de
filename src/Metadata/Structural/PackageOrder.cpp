#include "Metadata/Structural/PackageOrder.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Metadata/CollectionReferenceElement.h"
#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/Track.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "Types/Collection.h"

namespace Vantry { namespace Metadata { namespace Structural {

namespace {

void clear(Types::Collection & collection)
{
    while (collection.size() != 0)
        collection.remove(collection.size() - 1);
}

// Puts the references first that lead to a set for which the test holds. All
// change at once, so that a failure loses none.
template <class Test>
void putFirst(MetadataSet & set, Types::UniversalLabel const & label, Test test)
{
    CollectionReferenceElement * const element = dynamic_cast<CollectionReferenceElement *>(set.findElement(label));
    Types::Collection const * const old = element != nullptr ? element->value() : nullptr;
    if (old == nullptr)
        return;

    Templates::vector<bool> isFirst;
    for (unsigned int i = 0; i < old->size(); ++i)
        isFirst.push_back(test(referencedItem(set, label, i)));

    Templates::auto_ptr<Types::Collection> sorted = old->clone();
    clear(*sorted);
    for (bool const group : {true, false})
        for (unsigned int i = 0; i < old->size(); ++i)
            if (isFirst[i] == group)
                sorted->append(old->at(i).clone());
    element->set(sorted);
}

bool isMaterialPackage(MetadataSet const * set)
{
    return dynamic_cast<MaterialPackage const *>(set) != nullptr;
}

bool isTimeCode(MetadataSet const * set)
{
    return isTimeCodeTrack(dynamic_cast<Track const *>(set));
}

}

void orderPackagesAndTracks(PartitionMetadata & metadata)
{
    ContentStorage * const contentStorage = findPreface(metadata).contentStorage();
    VANTRY_CHECK(contentStorage != 0, InvalidFormat, "No ContentStorage");
    VANTRY_CHECK(contentStorage -> packagesCount () > 0, InvalidFormat, "No ContentStorage packages");

    putFirst(*contentStorage, Labels::packages(), isMaterialPackage);
    for (unsigned int i = 0; i < contentStorage->packagesCount(); ++i)
        if (GenericPackage * const package = contentStorage->package(i))
            putFirst(*package, Labels::tracks(), isTimeCode);
}

}}}
