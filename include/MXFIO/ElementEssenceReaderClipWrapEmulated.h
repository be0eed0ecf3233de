#pragma once

#include "MXFIO/BaseElementEssenceReader.h"

namespace Vantry { namespace MXFIO {

/// Reads a clip in one packet in pieces, each an edit unit of the track long,
/// as if the track were frame wrapped.
///
/// Where the edit units of the clip are shorter, as samples of sound are, the
/// pieces begin at the nearest one: they may differ by one, and don't drift.
class VANTRY_EXPORT ElementEssenceReaderClipWrapEmulated : public BaseElementEssenceReader
{
public:
    ElementEssenceReaderClipWrapEmulated(ContentStorageReader & reader, Clip const & clip);
    ~ElementEssenceReaderClipWrapEmulated() override;

    Int64 position() const override;
    bool isAtEnd() const override;

    /// The packet is one of its own: that part of the clip's which has the
    /// payload, under the key of the clip.
    bool nextElement(UInt64 searchLimit, ElementEditUnit & unit) override;

protected:
    bool moveTo(Int64 containerEditUnit) override;
    void moveToEnd() override;

private:
    class Packet;

    bool fetch(UInt64 searchLimit);
    bool cut(ElementEditUnit & unit);

    Packet * packet_;

    // The next piece, an edit unit of the track counted from the first one
    // stored.
    Int64 samplePosition_;
};

}}
