#include "Metadata/DMS1/ClipFramework.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Metadata/DMS1/DMS1MetadataKeys.h"
#include "Metadata/DMS1/DMS1MetadataULs.h"
#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/CreateSet.h"
#include "Metadata/Structural/DMSegment.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Platform/WideLiteral.h"
#include "Types/ISO7String.h"
#include "Types/UTF16String.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace DMS1 {

Templates::wstring clipKindToWString(ClipFrameworkClipKind kind)
{
    switch (kind)
    {
    case ClipKindStill:
        return Platform::wide(u"Still").text;
    case ClipKindGraphic:
        return Platform::wide(u"Graphic").text;
    case ClipKindMovingPictures:
        return Platform::wide(u"Moving Pictures").text;
    case ClipKindSound:
        return Platform::wide(u"Sound").text;
    case ClipKindOther:
        return Platform::wide(u"Other").text;
    }
    return Platform::wide(u"Unknown").text;
}

MetadataSet * createClipFramework(PartitionMetadata & metadata, Structural::TimelineTrack * track,
                                  Templates::string const & languageCode, ClipFrameworkClipKind kind)
{
    Structural::Sequence * const sequence = track->sequence();
    VANTRY_CHECK_TEXT(sequence != nullptr, "sequence != 0", InvalidFormat, "Track has no sequence");

    auto & segment =
        Structural::createSet<Structural::DMSegment>(metadata, Structural::StructuralMetadataKeys::dmSegment());
    segment.dataDefinition(&Structural::DataDefinitionULs::descriptiveMetadata());
    sequence->addStructuralComponent(0, &segment);

    MetadataSet * const framework = metadata.createMetadataSet(DMS1MetadataKeys::clipFramework());
    Types::ISO7String const language(languageCode.c_str());
    Structural::setValue(*framework, DMS1MetadataULs::frameworkExtendedTextLanguageCode(), &language);
    Types::UTF16String const kindText(clipKindToWString(kind).c_str());
    Structural::setValue(*framework, DMS1MetadataULs::clipKind(), &kindText);

    segment.dmFramework(framework);
    return framework;
}

}}}
