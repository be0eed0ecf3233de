#pragma once

#include "Metadata/Structural/CreateSet.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "OPBuilders/MaterialPackageProxy.h"
#include "OPBuilders/TrackProxy.h"
#include "Platform/WideLiteral.h"
#include "Utils/TimeCode.h"
#include "support/StructuralMetadata.h"

#include <sstream>

namespace Vantry { namespace Tests {

/// The metadata of a builder of an operational pattern, with source packages
/// as essence containers make them. `Builder` takes the arguments that follow
/// the date.
template <class Builder>
struct BuiltMetadata
{
    template <class... Flags>
    BuiltMetadata(StructuralMetadata::Dictionary const & dictionary, Types::ProductVersion const * version,
                  Flags... flags) :
        builder(dictionary, Platform::wide(u"Company"), Platform::wide(u"Product"), Platform::wide(u"1.0"),
                sample<Types::UUID>(), version, nullptr, flags...),
        metadata(*builder.metadata()),
        preface(Metadata::Structural::findPreface(metadata)),
        storage(*preface.contentStorage())
    {
    }

    /// Adds a package whose tracks, at 25 edit units per second, are numbered
    /// from 1: "ps" has picture and sound, "t" is time code, "d" data.
    Metadata::Structural::SourcePackage & addSource(std::string const & tracks, Int64 length = 10)
    {
        namespace Kinds = Metadata::Structural::DataDefinitionULs;
        auto & package =
            make<Metadata::Structural::SourcePackage>(Metadata::Structural::StructuralMetadataKeys::sourcePackage());
        static unsigned char number = 0;
        Types::UMID32 const uid = sample<Types::UMID32>(++number);
        package.packageUID(&uid);
        for (char kind : tracks)
        {
            Types::UniversalLabel const & definition = kind == 'p'   ? Kinds::picture()
                                                       : kind == 's' ? Kinds::audio()
                                                       : kind == 'd' ? Kinds::data()
                                                                     : Kinds::timecode12MInactive();
            auto & track =
                *createTimelineTrack(metadata, package, definition, package.tracksCount() + 1, 0, 0, {25, 1}, length);
            addSourceClip(metadata, track.sequence(), definition, 0, length);
        }
        package.descriptor(&descriptor("06 0E 2B 34 04 01 01 01 0D 01 03 01 02 06 01 00"));
        storage.appendPackage(&package);
        sources.push_back(&package);
        return package;
    }

    Metadata::Structural::FileDescriptor & descriptor(char const * essenceContainer)
    {
        auto & made = make<Metadata::Structural::WAVEAudioEssenceDescriptor>(
            Metadata::Structural::StructuralMetadataKeys::waveAudioEssenceDescriptor());
        Types::UniversalLabel const label(hex(essenceContainer).data());
        made.essenceContainer(&label);
        return made;
    }

    template <class Set>
    Set & make(KLV::Key const & key)
    {
        return Metadata::Structural::createSet<Set>(metadata, key);
    }

    /// A track of a source: "A2" is the second of the first.
    Metadata::Structural::Track & track(std::string const & name) const
    {
        return *sources.at(name[0] - 'A')->track(static_cast<unsigned int>(name[1] - '1'));
    }

    /// Adds a material package with tracks of clips: in "A1+A1:2,5 B1" the
    /// first track has all of A1 and then five edit units of it from the third
    /// on.
    OPBuilders::MaterialPackageProxy & addMaterial(std::string const & tracks,
                                                   Templates::Rational<int> const * rate = nullptr,
                                                   std::vector<Int64> const & origins = {})
    {
        OPBuilders::MaterialPackageProxy & package =
            *builder.createMaterialPackage(Utils::TimeCode(25, 10, 0, 0, 0, false, false), 25);
        std::istringstream words(tracks);
        std::size_t number = 0;
        for (std::string word; words >> word; ++number)
        {
            OPBuilders::TrackProxy & proxy = *package.addTrack(number < origins.size() ? origins[number] : 0, rate);
            std::istringstream clips(word);
            for (std::string clip; std::getline(clips, clip, '+');)
                addClip(proxy, clip);
        }
        return package;
    }

    void addClip(OPBuilders::TrackProxy & proxy, std::string const & clip)
    {
        auto & package = *sources.at(clip[0] - 'A');
        if (clip.size() < 4)
            return proxy.addClip(package, track(clip));
        std::size_t const comma = clip.find(',');
        proxy.addSubClip(package, track(clip), std::stoi(clip.substr(3)), std::stoi(clip.substr(comma + 1)));
    }

    Builder builder;
    Metadata::PartitionMetadata & metadata;
    Metadata::Structural::Preface & preface;
    Metadata::Structural::ContentStorage & storage;
    std::vector<Metadata::Structural::SourcePackage *> sources;
};

/// The tracks of a package: "1:10(0+10)" has the identifier 1 and lasts for 10
/// edit units, with a clip of 10 from 0 on; "0:10" is one of time code.
inline std::string tracksOf(Metadata::Structural::GenericPackage const & package)
{
    std::string text;
    for (unsigned int i = 0; i < package.tracksCount(); ++i)
    {
        Metadata::Structural::Track const & track = *package.track(i);
        Metadata::Structural::Sequence const & sequence = *track.sequence();
        text += (text.empty() ? "" : " ") + std::to_string(track.trackID()->value()) + ":" +
                std::to_string(sequence.duration()->value());
        for (unsigned int n = 0; n < sequence.structuralComponentsCount(); ++n)
            if (auto const * const clip =
                    dynamic_cast<Metadata::Structural::SourceClip *>(sequence.structuralComponent(n)))
                text += "(" + std::to_string(clip->startPosition()->value()) + "+" +
                        std::to_string(clip->duration()->value()) + ")";
    }
    return text;
}

}}
