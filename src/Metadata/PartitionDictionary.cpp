#include "Metadata/PartitionDictionary.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidLocalTag.h"
#include "Exceptions/LocalTagNotFound.h"
#include "Exceptions/NotFoundInPrimer.h"
#include "Exceptions/UniversalLabelCollision.h"
#include "MetaMetadata/Dictionary.h"
#include "Metadata/TagResolution.h"
#include "Packs/PrimerPack.h"

#include <set>
#include <utility>

namespace Vantry { namespace Metadata {

namespace {

UInt16 const INVALID_TAG = 0x0000;
UInt16 const FIRST_STATIC_TAG = 0x0100;
UInt16 const FIRST_DYNAMIC_TAG = 0x8000;

UInt16 numberOf(Types::LocalTag const & tag)
{
    return static_cast<UInt16>(tag[0] << 8 | tag[1]);
}

Types::LocalTag tagOf(UInt16 number)
{
    unsigned char const bytes[] = {static_cast<unsigned char>(number >> 8), static_cast<unsigned char>(number)};
    return Types::LocalTag(bytes);
}

// Whether all files use the tag for the same label. Tags below 01.00 were
// never given out like that, but a lenient reader tries.
bool isStatic(UInt16 number, bool strict)
{
    return number < FIRST_DYNAMIC_TAG && (number >= FIRST_STATIC_TAG || !strict);
}

Templates::wstring aboutTag(char const * lead, Types::LocalTag const & tag, char const * end = "")
{
    return Platform::stringToWstring(lead) + tag.toString(Types::StringRepresentationEncodingType::DOTTED_BYTES) +
           Platform::stringToWstring(end);
}

[[noreturn]] void fail(TagResolution::Outcome outcome, Types::LocalTag const & tag)
{
    switch (outcome)
    {
    case TagResolution::INVALID_TAG:
        VANTRY_FAIL(InvalidLocalTag, "Invalid Local Tag '00.00'");
    case TagResolution::NOT_IN_PRIMER:
        VANTRY_FAIL(NotFoundInPrimer,
                    aboutTag("Could not resolve local tag ", tag, " to Universal Label using primer."));
    case TagResolution::STATIC_TAG_UNKNOWN:
        VANTRY_FAIL(LocalTagNotFound, aboutTag("Dictionary does not contain static Local Tag ", tag));
    case TagResolution::COLLISION:
        VANTRY_FAIL(UniversalLabelCollision, "Primer redefines a static assigned tag!");
    default:
        VANTRY_FAIL(NotFoundInPrimer, aboutTag("Could not resolve local tag ", tag,
                                               " to Universal Label using either primer and the dictionary."));
    }
}

}

class PartitionDictionary::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Templates::SharedPtr<MetaMetadata::Dictionary> theDictionary,
         Templates::auto_ptr<Packs::PrimerPack> thePrimer) :
        dictionary(std::move(theDictionary)), primer(std::move(thePrimer)), nextDynamicTag(FIRST_DYNAMIC_TAG)
    {
    }

    // The static tag of a label, unless the primer uses it for another one.
    Types::LocalTag const * freeStaticTag(Types::UniversalLabel const & label) const
    {
        Types::LocalTag const * const tag = constDictionary().find(label);
        return tag != nullptr && constPrimer().find(*tag) == nullptr ? tag : nullptr;
    }

    Types::LocalTag generate()
    {
        while (nextDynamicTag != 0)
        {
            Types::LocalTag candidate = tagOf(nextDynamicTag++);
            if (constPrimer().find(candidate) == nullptr && constDictionary().find(candidate) == nullptr &&
                reserved.count(candidate) == 0)
                return candidate;
        }
        VANTRY_FAIL(InvalidLocalTag, "All LocalTags are used");
    }

    MetaMetadata::Dictionary const & constDictionary() const { return *dictionary; }
    Packs::PrimerPack const & constPrimer() const { return *primer; }

    Templates::SharedPtr<MetaMetadata::Dictionary> const dictionary;
    Templates::auto_ptr<Packs::PrimerPack> const primer;
    std::set<Types::LocalTag, std::less<>, Platform::Allocator<Types::LocalTag>> reserved;

    // Zero when all have been tried.
    UInt16 nextDynamicTag;
};

PartitionDictionary::PartitionDictionary(Templates::SharedPtr<MetaMetadata::Dictionary> dictionary,
                                         Templates::auto_ptr<Packs::PrimerPack> primer) :
    impl_(new Impl(std::move(dictionary), std::move(primer)))
{
}

PartitionDictionary::~PartitionDictionary()
{
    delete impl_;
}

Templates::SharedPtr<MetaMetadata::Dictionary> const & PartitionDictionary::dictionary() const noexcept
{
    return impl_->dictionary;
}

Packs::PrimerPack const & PartitionDictionary::primer() const noexcept
{
    return impl_->constPrimer();
}

Types::LocalTag const & PartitionDictionary::find(Types::UniversalLabel const & label) const
{
    Types::LocalTag const * const tag = primer().find(label);
    if (tag == nullptr)
        VANTRY_FAIL(LocalTagNotFound, "No LocalTag defined for this UniversalLabel");
    return *tag;
}

Types::UniversalLabel const & PartitionDictionary::find(Types::LocalTag const & tag, bool strict) const
{
    TagResolution const resolution = resolveTag(*this, tag, strict);
    if (resolution.outcome != TagResolution::FOUND)
        fail(resolution.outcome, tag);
    return *resolution.label;
}

Types::LocalTag const & PartitionDictionary::findOrGenerate(Types::UniversalLabel const & label)
{
    Types::LocalTag const * const known = primer().find(label);
    if (known != nullptr)
        return *known;

    Types::LocalTag const * const staticTag = impl_->freeStaticTag(label);
    impl_->primer->add(staticTag != nullptr ? *staticTag : impl_->generate(), label);
    return find(label);
}

void PartitionDictionary::reserve(Types::LocalTag const & tag)
{
    impl_->reserved.insert(tag);
}

TagResolution resolveTag(PartitionDictionary const & dictionary, Types::LocalTag const & tag, bool strict)
{
    UInt16 const number = numberOf(tag);
    if (number == INVALID_TAG)
        return {TagResolution::INVALID_TAG, nullptr};

    Types::UniversalLabel const * const fromPrimer = dictionary.primer().find(tag);
    if (strict && fromPrimer == nullptr)
        return {TagResolution::NOT_IN_PRIMER, nullptr};
    if (!strict && fromPrimer != nullptr)
        return {TagResolution::FOUND, fromPrimer};

    if (isStatic(number, strict))
    {
        MetaMetadata::Dictionary const & schema = *dictionary.dictionary();
        Types::UniversalLabel const * const fromDictionary = schema.find(tag);
        if (fromDictionary == nullptr)
            return {TagResolution::STATIC_TAG_UNKNOWN, nullptr};
        if (strict && *fromDictionary != *fromPrimer)
            return {TagResolution::COLLISION, nullptr};
        return {TagResolution::FOUND, fromDictionary};
    }

    if (fromPrimer == nullptr)
        return {TagResolution::NOT_IN_PRIMER_NOR_DICTIONARY, nullptr};
    return {TagResolution::FOUND, fromPrimer};
}

}}
