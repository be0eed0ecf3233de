#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace KLV {
class Key;
}

/// Keys of the sets of the descriptive metadata scheme DMS-1 (SMPTE 380M):
/// local sets with tags and lengths of two bytes. None has a class of its own.
namespace Metadata { namespace DMS1 { namespace DMS1MetadataKeys {

/// What a production is about as a whole; describes tracks of a package all
/// along.
VANTRY_EXPORT KLV::Key const & productionFramework() noexcept;

/// What a clip is about: how it was captured and made.
VANTRY_EXPORT KLV::Key const & clipFramework() noexcept;

/// What a scene is about: the action and events in it.
VANTRY_EXPORT KLV::Key const & sceneFramework() noexcept;

/// The titles of a production, clip or scene.
VANTRY_EXPORT KLV::Key const & titles() noexcept;

/// An identifier other than the package's, such as an ISAN.
VANTRY_EXPORT KLV::Key const & dMS1Identification() noexcept;

/// The group that a production belongs to, such as a series.
VANTRY_EXPORT KLV::Key const & groupRelationship() noexcept;

/// The brand under which something is shown.
VANTRY_EXPORT KLV::Key const & branding() noexcept;

/// An event of a production: a broadcast, a licence period.
VANTRY_EXPORT KLV::Key const & event() noexcept;

/// Where and how something was published.
VANTRY_EXPORT KLV::Key const & publication() noexcept;

/// An award that was given, or that something was nominated for.
VANTRY_EXPORT KLV::Key const & award() noexcept;

/// The captions and their language.
VANTRY_EXPORT KLV::Key const & captionsDescription() noexcept;

/// Words on the content: keywords, a synopsis, a description.
VANTRY_EXPORT KLV::Key const & annotation() noexcept;

/// When the action takes place.
VANTRY_EXPORT KLV::Key const & settingPeriod() noexcept;

/// Script, transcript or text in the picture.
VANTRY_EXPORT KLV::Key const & scripting() noexcept;

/// The content's class in a scheme of classes.
VANTRY_EXPORT KLV::Key const & classification() noexcept;

/// A shot: part of a clip or scene.
VANTRY_EXPORT KLV::Key const & shot() noexcept;

/// A point of note in a shot.
VANTRY_EXPORT KLV::Key const & keyPoint() noexcept;

/// Who takes part, and how.
VANTRY_EXPORT KLV::Key const & participant() noexcept;

/// A person.
VANTRY_EXPORT KLV::Key const & person() noexcept;

/// An organisation.
VANTRY_EXPORT KLV::Key const & organisation() noexcept;

/// A place of the action or of the recording.
VANTRY_EXPORT KLV::Key const & location() noexcept;

/// A postal or electronic address.
VANTRY_EXPORT KLV::Key const & address() noexcept;

/// Telephone numbers, mail addresses and the like.
VANTRY_EXPORT KLV::Key const & communications() noexcept;

/// A contract on the content.
VANTRY_EXPORT KLV::Key const & contract() noexcept;

/// A right in the content, with its owner and limits.
VANTRY_EXPORT KLV::Key const & rights() noexcept;

/// The format in which the picture is to be seen.
VANTRY_EXPORT KLV::Key const & pictureFormat() noexcept;

/// A device that was used, with its settings.
VANTRY_EXPORT KLV::Key const & deviceParameters() noexcept;

/// A name with its value.
VANTRY_EXPORT KLV::Key const & nameValue() noexcept;

/// How often and in which steps the content was copied.
VANTRY_EXPORT KLV::Key const & processing() noexcept;

/// The project that the content was made for.
VANTRY_EXPORT KLV::Key const & project() noexcept;

/// All persons, organisations and places that others refer to.
VANTRY_EXPORT KLV::Key const & contactsList() noexcept;

/// The words at the beginning and the end.
VANTRY_EXPORT KLV::Key const & cueWords() noexcept;

}}}
}
