#pragma once

#include "MXFIO/BaseElementEssenceReader.h"

namespace Vantry { namespace MXFIO {

/// Reads an element that has a packet in each edit unit of its container:
/// frame wrapping.
///
/// A read goes on where the container stands if that is right, so that readers
/// which take turns walk through the file together.
class VANTRY_EXPORT ElementEssenceReader : public BaseElementEssenceReader
{
public:
    /// \throws Exceptions::KeyNotFound when the container has no such element.
    ElementEssenceReader(ContentStorageReader & reader, Clip const & clip);
    ~ElementEssenceReader() override;

    bool nextElement(UInt64 searchLimit, ElementEditUnit & unit) override;

protected:
    bool moveTo(Int64 containerEditUnit) override;

private:
    bool isReached() const;
    void describe(ElementEditUnit & unit);

    unsigned int const elementIndex_;
    Templates::Rational<Int64> const unitDuration_;
};

}}
