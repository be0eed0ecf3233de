#include "StreamForms.h"

#include "Analyzers/DVAnalyzer.h"
#include "AncillaryElements.h"
#include "DataIO/BlockHolder.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "PacketStreams.h"

#include <algorithm>

namespace Vantry { namespace Application {

namespace {

bool hasAt(std::string_view head, std::size_t place, std::string_view text)
{
    return head.size() >= place && head.compare(place, text.size(), text) == 0;
}

/// Whether a sequence header comes first, with stuffing ahead of it or without.
bool isMPEGVideo(std::string_view head)
{
    std::size_t const one = head.find_first_not_of('\0');
    return one != std::string_view::npos && one >= 2 && hasAt(head, one, "\x01\xB3");
}

bool isDV(std::string_view head)
{
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(head.size());
    std::copy(head.begin(), head.end(), block.block()->data());
    return Analyzers::DVAnalyzer::isDV(DataIO::Slice(block.block(), 0, head.size()));
}

}

std::optional<EssenceKind> kindOfStream(std::string_view head)
{
    if (isRIFF(head, "WAVE"))
        return EssenceKind::WAVE;
    if (isMPEGVideo(head))
        return EssenceKind::MPEG2_VIDEO;
    if (isDV(head))
        return EssenceKind::DV;
    if (isS302M(head))
        return EssenceKind::S302M;
    return kindOfElements(head);
}

bool isCodestream(std::string_view head)
{
    return hasAt(head, 0, "\xFF\x4F\xFF\x51");
}

bool isRIFF(std::string_view head, std::string_view form)
{
    return hasAt(head, 8, form) && (hasAt(head, 0, "RIFF") || hasAt(head, 0, "RF64"));
}

}}
