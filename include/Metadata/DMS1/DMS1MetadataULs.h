#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace Types {
class UniversalLabel;
}

/// Labels of the attributes of DMS-1 sets (SMPTE 380M), in the order of their
/// bytes behind the version. Attributes whose name ends in Set or Sets refer to
/// sets of the kind that the name says, and own them unless the comment says
/// otherwise.
namespace Metadata { namespace DMS1 { namespace DMS1MetadataULs {

/// The clip's extended unique material identifier (SMPTE 330M), 64 bytes.
/// Values of 32 bytes are padded when they are read.
VANTRY_EXPORT Types::UniversalLabel const & extendedClipID() noexcept;

/// Identifies a participant; weak references carry it.
VANTRY_EXPORT Types::UniversalLabel const & participantUID() noexcept;

/// Identifies a person, organisation or place; weak references carry it.
VANTRY_EXPORT Types::UniversalLabel const & contactUID() noexcept;

/// What a device is called in its place.
VANTRY_EXPORT Types::UniversalLabel const & deviceDesignation() noexcept;

/// Model of a device.
VANTRY_EXPORT Types::UniversalLabel const & deviceModel() noexcept;

/// Serial number of a device.
VANTRY_EXPORT Types::UniversalLabel const & deviceSerialNumber() noexcept;

/// Identifier of a device by the IEEE, 6 bytes.
VANTRY_EXPORT Types::UniversalLabel const & iEEEDeviceIdentifier() noexcept;

/// Kind of a device.
VANTRY_EXPORT Types::UniversalLabel const & deviceType() noexcept;

/// Number of a device in its owner's books.
VANTRY_EXPORT Types::UniversalLabel const & deviceAssetNumber() noexcept;

/// Identifier in the form of a SMPTE label.
VANTRY_EXPORT Types::UniversalLabel const & sMPTEUniversalLabelLocator() noexcept;

/// Where an identifier leads.
VANTRY_EXPORT Types::UniversalLabel const & identificationLocator() noexcept;

/// Number of the project.
VANTRY_EXPORT Types::UniversalLabel const & projectNumber() noexcept;

/// Name of the project.
VANTRY_EXPORT Types::UniversalLabel const & projectName() noexcept;

/// The title.
VANTRY_EXPORT Types::UniversalLabel const & mainTitle() noexcept;

/// A title beside the main one.
VANTRY_EXPORT Types::UniversalLabel const & secondaryTitle() noexcept;

/// Number of the scene.
VANTRY_EXPORT Types::UniversalLabel const & sceneNumber() noexcept;

/// Number of the take.
VANTRY_EXPORT Types::UniversalLabel const & takeNumber() noexcept;

/// Title of the version.
VANTRY_EXPORT Types::UniversalLabel const & versionTitle() noexcept;

/// Title while the production goes on.
VANTRY_EXPORT Types::UniversalLabel const & workingTitle() noexcept;

/// Title of the original.
VANTRY_EXPORT Types::UniversalLabel const & originalTitle() noexcept;

/// Number of the clip.
VANTRY_EXPORT Types::UniversalLabel const & clipNumber() noexcept;

/// The brand.
VANTRY_EXPORT Types::UniversalLabel const & brandMainTitle() noexcept;

/// The original brand.
VANTRY_EXPORT Types::UniversalLabel const & brandOriginalTitle() noexcept;

/// Title of the framework.
VANTRY_EXPORT Types::UniversalLabel const & frameworkTitle() noexcept;

/// Numbers of the tracks that the shot spans.
VANTRY_EXPORT Types::UniversalLabel const & shotTrackIDs() noexcept;

/// Kind of an identifier.
VANTRY_EXPORT Types::UniversalLabel const & identifierKind() noexcept;

/// The identifier's bytes.
VANTRY_EXPORT Types::UniversalLabel const & identifierValue() noexcept;

/// Maker of a device.
VANTRY_EXPORT Types::UniversalLabel const & manufacturer() noexcept;

/// Code of an organisation.
VANTRY_EXPORT Types::UniversalLabel const & organisationCode() noexcept;

/// Number of the contract.
VANTRY_EXPORT Types::UniversalLabel const & supplyContractNumber() noexcept;

/// Kind of a group: series, serial, evening.
VANTRY_EXPORT Types::UniversalLabel const & programmingGroupKind() noexcept;

/// Number of the first episode.
VANTRY_EXPORT Types::UniversalLabel const & episodicStartNumber() noexcept;

/// Number of the last episode.
VANTRY_EXPORT Types::UniversalLabel const & episodicEndNumber() noexcept;

/// Title of the group.
VANTRY_EXPORT Types::UniversalLabel const & progammingGroupTitle() noexcept;

/// Owner of the copyright.
VANTRY_EXPORT Types::UniversalLabel const & copyrightOwner() noexcept;

/// Kind of the intellectual property.
VANTRY_EXPORT Types::UniversalLabel const & intellectualPropertyType() noexcept;

/// Right in the intellectual property.
VANTRY_EXPORT Types::UniversalLabel const & intellectualPropertyRight() noexcept;

/// Holder of the right.
VANTRY_EXPORT Types::UniversalLabel const & rightsHolder() noexcept;

/// Who manages the right.
VANTRY_EXPORT Types::UniversalLabel const & rightsManagementAuthority() noexcept;

/// How often the content may be used.
VANTRY_EXPORT Types::UniversalLabel const & maximumNumberOfUsages() noexcept;

/// Condition of the right.
VANTRY_EXPORT Types::UniversalLabel const & rightCondition() noexcept;

/// Remarks on the right.
VANTRY_EXPORT Types::UniversalLabel const & rightRemarks() noexcept;

/// Who gave the identifier.
VANTRY_EXPORT Types::UniversalLabel const & identificationIssuingAuthority() noexcept;

/// Organisation that published.
VANTRY_EXPORT Types::UniversalLabel const & publicationOrganisationName() noexcept;

/// Service on which it was published.
VANTRY_EXPORT Types::UniversalLabel const & publicationServiceName() noexcept;

/// Medium of the publication.
VANTRY_EXPORT Types::UniversalLabel const & publicationMedium() noexcept;

/// Region of the publication.
VANTRY_EXPORT Types::UniversalLabel const & publicationRegion() noexcept;

/// Rank of a participant's contribution.
VANTRY_EXPORT Types::UniversalLabel const & contributionStatus() noexcept;

/// What an organisation does.
VANTRY_EXPORT Types::UniversalLabel const & natureOfOrganisation() noexcept;

/// What a participant does.
VANTRY_EXPORT Types::UniversalLabel const & jobFunction() noexcept;

/// What a participant does, as a code.
VANTRY_EXPORT Types::UniversalLabel const & jobFunctionCode() noexcept;

/// The role that a participant plays.
VANTRY_EXPORT Types::UniversalLabel const & roleOrIdentityName() noexcept;

/// Department of a contact.
VANTRY_EXPORT Types::UniversalLabel const & contactDepartment() noexcept;

/// Family name.
VANTRY_EXPORT Types::UniversalLabel const & familyName() noexcept;

/// First given name.
VANTRY_EXPORT Types::UniversalLabel const & firstGivenName() noexcept;

/// Form of address.
VANTRY_EXPORT Types::UniversalLabel const & salutation() noexcept;

/// Honours and degrees.
VANTRY_EXPORT Types::UniversalLabel const & honoursQualificationsEtc() noexcept;

/// Words on a person.
VANTRY_EXPORT Types::UniversalLabel const & personDescription() noexcept;

/// Given names behind the first.
VANTRY_EXPORT Types::UniversalLabel const & otherGivenNames() noexcept;

/// Another name of the person.
VANTRY_EXPORT Types::UniversalLabel const & alternateName() noexcept;

/// Part of the name between given and family name.
VANTRY_EXPORT Types::UniversalLabel const & linkingName() noexcept;

/// Part of the name behind the family name.
VANTRY_EXPORT Types::UniversalLabel const & nameSuffix() noexcept;

/// Family name of earlier days.
VANTRY_EXPORT Types::UniversalLabel const & formerFamilyName() noexcept;

/// Nationality.
VANTRY_EXPORT Types::UniversalLabel const & nationality() noexcept;

/// Citizenship.
VANTRY_EXPORT Types::UniversalLabel const & citizenship() noexcept;

/// Name of the organisation.
VANTRY_EXPORT Types::UniversalLabel const & organisationMainName() noexcept;

/// Language of the captions.
VANTRY_EXPORT Types::UniversalLabel const & captionLanguageCode() noexcept;

/// Language of the captions (RFC 5646).
VANTRY_EXPORT Types::UniversalLabel const & extendedCaptionsLanguageCode() noexcept;

/// Language of the texts in the framework (RFC 5646).
VANTRY_EXPORT Types::UniversalLabel const & frameworkExtendedTextLanguageCode() noexcept;

/// Main spoken language (RFC 5646).
VANTRY_EXPORT Types::UniversalLabel const & primaryExtendedSpokenLanguageCode() noexcept;

/// Second spoken language (RFC 5646).
VANTRY_EXPORT Types::UniversalLabel const & secondaryExtendedSpokenLanguageCode() noexcept;

/// Spoken language of the original (RFC 5646).
VANTRY_EXPORT Types::UniversalLabel const & originalExtendedSpokenLanguageCode() noexcept;

/// Name of a pair of name and value.
VANTRY_EXPORT Types::UniversalLabel const & itemName() noexcept;

/// Value of a pair of name and value.
VANTRY_EXPORT Types::UniversalLabel const & itemValue() noexcept;

/// Thesaurus that words are taken from.
VANTRY_EXPORT Types::UniversalLabel const & thesaurusName() noexcept;

/// Class of the content.
VANTRY_EXPORT Types::UniversalLabel const & contentClassification() noexcept;

/// Words at the beginning.
VANTRY_EXPORT Types::UniversalLabel const & inCueWords() noexcept;

/// Words at the end.
VANTRY_EXPORT Types::UniversalLabel const & outCueWords() noexcept;

/// Kind of a key point.
VANTRY_EXPORT Types::UniversalLabel const & keyPointKind() noexcept;

/// What a key point says.
VANTRY_EXPORT Types::UniversalLabel const & keyPointValue() noexcept;

/// Thesaurus for the whole framework.
VANTRY_EXPORT Types::UniversalLabel const & frameworkThesaurusName() noexcept;

/// Colour of the picture: colour, black and white, tinted.
VANTRY_EXPORT Types::UniversalLabel const & colourDescriptor() noexcept;

/// Synopsis of the group.
VANTRY_EXPORT Types::UniversalLabel const & groupSynopsis() noexcept;

/// Synopsis of the content.
VANTRY_EXPORT Types::UniversalLabel const & annotationSynopsis() noexcept;

/// Description of the content.
VANTRY_EXPORT Types::UniversalLabel const & annotationDescription() noexcept;

/// Kind of the text: script, transcript, lyrics.
VANTRY_EXPORT Types::UniversalLabel const & scriptingKind() noexcept;

/// The text.
VANTRY_EXPORT Types::UniversalLabel const & scriptingText() noexcept;

/// Description of the shot.
VANTRY_EXPORT Types::UniversalLabel const & shotDescription() noexcept;

/// Kind of the annotation.
VANTRY_EXPORT Types::UniversalLabel const & annotationKind() noexcept;

/// Words on material that belongs to it.
VANTRY_EXPORT Types::UniversalLabel const & relatedMaterialDescription() noexcept;

/// Festival of the award.
VANTRY_EXPORT Types::UniversalLabel const & festival() noexcept;

/// Name of the award.
VANTRY_EXPORT Types::UniversalLabel const & awardName() noexcept;

/// Class of the award.
VANTRY_EXPORT Types::UniversalLabel const & awardClassification() noexcept;

/// Category of the award.
VANTRY_EXPORT Types::UniversalLabel const & nominationCategory() noexcept;

/// Any comment.
VANTRY_EXPORT Types::UniversalLabel const & descriptiveComment() noexcept;

/// Comment on the shot.
VANTRY_EXPORT Types::UniversalLabel const & shotComment() noexcept;

/// Kind of the comment on the shot.
VANTRY_EXPORT Types::UniversalLabel const & shotCommentKind() noexcept;

/// What the slate says.
VANTRY_EXPORT Types::UniversalLabel const & slateInformation() noexcept;

/// Kind of the clip; see ClipFrameworkClipKind.
VANTRY_EXPORT Types::UniversalLabel const & clipKind() noexcept;

/// How a device was used.
VANTRY_EXPORT Types::UniversalLabel const & deviceUsageDescription() noexcept;

/// Width to height of the part of the picture that counts.
VANTRY_EXPORT Types::UniversalLabel const & viewportAspectRatio() noexcept;

/// The format that the viewer sees, such as letterbox.
VANTRY_EXPORT Types::UniversalLabel const & perceivedDisplayFormat() noexcept;

/// Kind of the captions.
VANTRY_EXPORT Types::UniversalLabel const & captionKind() noexcept;

/// How the content is integrated.
VANTRY_EXPORT Types::UniversalLabel const & integrationIndication() noexcept;

/// Kind of the event.
VANTRY_EXPORT Types::UniversalLabel const & eventIndication() noexcept;

/// Whether the quality suffices.
VANTRY_EXPORT Types::UniversalLabel const & qualityFlag() noexcept;

/// Whether there is a logo in the picture.
VANTRY_EXPORT Types::UniversalLabel const & logoFlag() noexcept;

/// Use of the graphic.
VANTRY_EXPORT Types::UniversalLabel const & graphicUsageType() noexcept;

/// Steps of processing.
VANTRY_EXPORT Types::UniversalLabel const & processSteps() noexcept;

/// How many analogue copies lie between original and content.
VANTRY_EXPORT Types::UniversalLabel const & generationCopyNumber() noexcept;

/// How many digital copies lie between original and content.
VANTRY_EXPORT Types::UniversalLabel const & generationCloneNumber() noexcept;

/// The picture format.
VANTRY_EXPORT Types::UniversalLabel const & imageFormatSet() noexcept;

/// The processing.
VANTRY_EXPORT Types::UniversalLabel const & processingSet() noexcept;

/// The project.
VANTRY_EXPORT Types::UniversalLabel const & projectSet() noexcept;

/// The list of contacts.
VANTRY_EXPORT Types::UniversalLabel const & contactsListSet() noexcept;

/// The cue words of an annotation.
VANTRY_EXPORT Types::UniversalLabel const & annotationCueWordsSet() noexcept;

/// The cue words of a shot.
VANTRY_EXPORT Types::UniversalLabel const & shotCueWordsSet() noexcept;

/// Participants in a contract, weakly.
VANTRY_EXPORT Types::UniversalLabel const & contractParticipantSets() noexcept;

/// Participants in what is annotated, weakly.
VANTRY_EXPORT Types::UniversalLabel const & annotationParticipantSets() noexcept;

/// Persons behind a participant or organisation, weakly.
VANTRY_EXPORT Types::UniversalLabel const & personSetsWeak() noexcept;

/// Organisations behind a participant, weakly.
VANTRY_EXPORT Types::UniversalLabel const & participantOrganisationSets() noexcept;

/// Organisations of a person, weakly.
VANTRY_EXPORT Types::UniversalLabel const & personOrganisationSets() noexcept;

/// Places, weakly.
VANTRY_EXPORT Types::UniversalLabel const & locationSetsWeak() noexcept;

/// The titles.
VANTRY_EXPORT Types::UniversalLabel const & titlesSets() noexcept;

/// The groups.
VANTRY_EXPORT Types::UniversalLabel const & groupRelationshipSets() noexcept;

/// The identifiers.
VANTRY_EXPORT Types::UniversalLabel const & identificationSets() noexcept;

/// The brands.
VANTRY_EXPORT Types::UniversalLabel const & brandingSets() noexcept;

/// The events.
VANTRY_EXPORT Types::UniversalLabel const & eventSets() noexcept;

/// The publications.
VANTRY_EXPORT Types::UniversalLabel const & publicationSets() noexcept;

/// The awards.
VANTRY_EXPORT Types::UniversalLabel const & awardSets() noexcept;

/// The captions.
VANTRY_EXPORT Types::UniversalLabel const & captionsDescriptionSets() noexcept;

/// The annotations.
VANTRY_EXPORT Types::UniversalLabel const & annotationSets() noexcept;

/// The annotations of an event.
VANTRY_EXPORT Types::UniversalLabel const & eventAnnotationSets() noexcept;

/// The periods of a production's action.
VANTRY_EXPORT Types::UniversalLabel const & productionSettingPeriodSets() noexcept;

/// The periods of a scene's action.
VANTRY_EXPORT Types::UniversalLabel const & sceneSettingPeriodSets() noexcept;

/// The texts.
VANTRY_EXPORT Types::UniversalLabel const & scriptingSets() noexcept;

/// The classes of the content.
VANTRY_EXPORT Types::UniversalLabel const & classificationSets() noexcept;

/// The shots of a scene.
VANTRY_EXPORT Types::UniversalLabel const & sceneShotSets() noexcept;

/// The shots of a clip.
VANTRY_EXPORT Types::UniversalLabel const & clipShotSets() noexcept;

/// The key points.
VANTRY_EXPORT Types::UniversalLabel const & keyPointSets() noexcept;

/// The participants.
VANTRY_EXPORT Types::UniversalLabel const & participantSets() noexcept;

/// The persons, owned.
VANTRY_EXPORT Types::UniversalLabel const & personSetsStrong() noexcept;

/// The organisations, owned.
VANTRY_EXPORT Types::UniversalLabel const & organisationSets() noexcept;

/// The places, owned.
VANTRY_EXPORT Types::UniversalLabel const & locationSetsStrong() noexcept;

/// The addresses.
VANTRY_EXPORT Types::UniversalLabel const & addressSets() noexcept;

/// The telephone numbers and mail addresses.
VANTRY_EXPORT Types::UniversalLabel const & communicationsSets() noexcept;

/// The contracts.
VANTRY_EXPORT Types::UniversalLabel const & contractSets() noexcept;

/// The rights.
VANTRY_EXPORT Types::UniversalLabel const & rightsSets() noexcept;

/// The devices.
VANTRY_EXPORT Types::UniversalLabel const & deviceParametersSets() noexcept;

/// Names and values of a class.
VANTRY_EXPORT Types::UniversalLabel const & classificationNameValueSets() noexcept;

/// Names and values of the list of contacts.
VANTRY_EXPORT Types::UniversalLabel const & contactsListNameValueSets() noexcept;

/// Names and values of a device: its settings.
VANTRY_EXPORT Types::UniversalLabel const & deviceParametersNameValueSets() noexcept;

/// Names and values of an address.
VANTRY_EXPORT Types::UniversalLabel const & addressNameValueSets() noexcept;

/// Where to find more metadata.
VANTRY_EXPORT Types::UniversalLabel const & metadataServerLocators() noexcept;

/// Where to find material that belongs to it.
VANTRY_EXPORT Types::UniversalLabel const & relatedMaterialLocators() noexcept;

/// Where to find the text.
VANTRY_EXPORT Types::UniversalLabel const & scriptingLocators() noexcept;

/// Number within the group.
VANTRY_EXPORT Types::UniversalLabel const & numericalPositionInSequence() noexcept;

/// Size of the group.
VANTRY_EXPORT Types::UniversalLabel const & totalNumberInTheSequence() noexcept;

/// Region of the licence.
VANTRY_EXPORT Types::UniversalLabel const & regionOrAreaOfIPLicense() noexcept;

/// Number of the room.
VANTRY_EXPORT Types::UniversalLabel const & roomOrSuiteNumber() noexcept;

/// Number in the street.
VANTRY_EXPORT Types::UniversalLabel const & streetNumber() noexcept;

/// The street.
VANTRY_EXPORT Types::UniversalLabel const & streetName() noexcept;

/// Town of the post office.
VANTRY_EXPORT Types::UniversalLabel const & postalTown() noexcept;

/// The city.
VANTRY_EXPORT Types::UniversalLabel const & city() noexcept;

/// State, province or county.
VANTRY_EXPORT Types::UniversalLabel const & stateOrProvinceOrCounty() noexcept;

/// Postal code.
VANTRY_EXPORT Types::UniversalLabel const & postalCode() noexcept;

/// The country.
VANTRY_EXPORT Types::UniversalLabel const & country() noexcept;

/// Name of the room.
VANTRY_EXPORT Types::UniversalLabel const & roomOrSuiteName() noexcept;

/// Name of the building.
VANTRY_EXPORT Types::UniversalLabel const & buildingName() noexcept;

/// Name of the place.
VANTRY_EXPORT Types::UniversalLabel const & placeName() noexcept;

/// Longitude and latitude. The bytes are those of astronomicalBodyName: a set
/// has both as one attribute.
VANTRY_EXPORT Types::UniversalLabel const & geographicalCoordinate() noexcept;

/// The body of the solar system that the place lies on. The bytes are those of
/// geographicalCoordinate: a set has both as one attribute.
VANTRY_EXPORT Types::UniversalLabel const & astronomicalBodyName() noexcept;

/// Telephone number.
VANTRY_EXPORT Types::UniversalLabel const & telephoneNumber() noexcept;

/// Fax number.
VANTRY_EXPORT Types::UniversalLabel const & faxNumber() noexcept;

/// Mail address.
VANTRY_EXPORT Types::UniversalLabel const & emailAddress() noexcept;

/// Telephone number of the switchboard.
VANTRY_EXPORT Types::UniversalLabel const & centralTelephoneNumber() noexcept;

/// Mobile telephone number.
VANTRY_EXPORT Types::UniversalLabel const & mobileTelephoneNumber() noexcept;

/// Web page.
VANTRY_EXPORT Types::UniversalLabel const & webPage() noexcept;

/// Words on the place.
VANTRY_EXPORT Types::UniversalLabel const & locationDescription() noexcept;

/// Kind of the place.
VANTRY_EXPORT Types::UniversalLabel const & locationKind() noexcept;

/// When the event begins.
VANTRY_EXPORT Types::UniversalLabel const & eventStartDateAndTime() noexcept;

/// When the festival was.
VANTRY_EXPORT Types::UniversalLabel const & festivalDateAndTime() noexcept;

/// When the event ends.
VANTRY_EXPORT Types::UniversalLabel const & eventEndDateAndTime() noexcept;

/// Where the key point lies, in edit units.
VANTRY_EXPORT Types::UniversalLabel const & keyPointPosition() noexcept;

/// Where the shot begins, in edit units.
VANTRY_EXPORT Types::UniversalLabel const & shotStartPosition() noexcept;

/// The period of the action as a word.
VANTRY_EXPORT Types::UniversalLabel const & timePeriodKeyword() noexcept;

/// The period of the action as date and time.
VANTRY_EXPORT Types::UniversalLabel const & settingDateAndTime() noexcept;

/// Words on the period of the action.
VANTRY_EXPORT Types::UniversalLabel const & settingPeriodDescription() noexcept;

/// When the clip was recorded or made.
VANTRY_EXPORT Types::UniversalLabel const & clipCreationDateAndTime() noexcept;

/// When the right begins.
VANTRY_EXPORT Types::UniversalLabel const & rightsStartDateAndTime() noexcept;

/// When the right ends.
VANTRY_EXPORT Types::UniversalLabel const & rightsStopDateAndTime() noexcept;

/// Length of the shot in edit units.
VANTRY_EXPORT Types::UniversalLabel const & shotDuration() noexcept;

}}}
}
