#pragma once

#include "MXFIO/BaseElementEssenceReader.h"

namespace Vantry { namespace MXFIO {

/// Reads a clip in one packet: the first read gives all of it from the
/// position on, the next gives nothing.
class VANTRY_EXPORT ElementEssenceReaderClipWrap : public BaseElementEssenceReader
{
public:
    ElementEssenceReaderClipWrap(ContentStorageReader & reader, Clip const & clip);
    ~ElementEssenceReaderClipWrap() override;

    bool isAtEnd() const override;
    bool nextElement(UInt64 searchLimit, ElementEditUnit & unit) override;

protected:
    /// Costs nothing: the next read finds the place.
    bool moveTo(Int64 containerEditUnit) override;

private:
    void trim(ElementEditUnit & unit);

    bool isDelivered_;
};

}}
