#include "Metadata/ReferenceHolder.h"

#include "Exceptions/Check.h"
#include "Exceptions/MetadataSetReferenceNotAllowed.h"
#include "MetaMetadata/MetaElement.h"
#include "MetaMetadata/MetaMetadataSet.h"
#include "MetaMetadata/MetaReferenceHolder.h"
#include "MetaMetadata/Visitors/GetMetaElementVisitor.h"
#include "Metadata/MetadataSet.h"

#include <algorithm>

namespace Vantry { namespace Metadata {

namespace {

using Keys = MetaMetadata::MetaReferenceHolder::Keys;

Templates::wstring notAllowedText(Types::UniversalLabel const & label, KLV::Key const & key, Keys const & allowed)
{
    auto const form = Types::StringRepresentationEncodingType::DOTTED_BYTES;
    Templates::wstring text = Platform::stringToWstring("ReferenceElement with UL ") + label.toString(form) +
                              Platform::stringToWstring(" cannot reference set with key '") + key.toString(form) +
                              Platform::stringToWstring("'. Must reference one of: ");
    for (KLV::Key const & one : allowed)
        text += Platform::stringToWstring("[") + one.toString(form) + Platform::stringToWstring("]");
    return text;
}

}

void ReferenceHolder::checkIfSetCanBeReferenced(MetadataSet const * set) const
{
    auto const * const rules = MetaMetadata::Visitors::getMetaElement<MetaMetadata::MetaReferenceHolder>(metaElement_);
    if (rules == nullptr)
        return;

    // A set without a schema is of no kind that could be listed.
    Keys const & allowed = rules->allowedMetadataSets();
    MetaMetadata::MetaMetadataSet const * const schema = set->metaMetadataSet();
    if (schema == nullptr || std::find(allowed.begin(), allowed.end(), schema->key()) == allowed.end())
        VANTRY_FAIL(MetadataSetReferenceNotAllowed,
                    notAllowedText(metaElement_->universalLabel(), set->key(), allowed));
}

}}
