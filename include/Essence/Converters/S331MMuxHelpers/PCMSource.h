#pragma once

#include "Essence/Converters/S331MMuxHelpers/PCMBasicSource.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

/// An input that is a stream of raw PCM.
class VANTRY_EXPORT PCMSource : public PCMBasicSource
{
public:
    /// \throws Exceptions::InvalidValue for a layout that doesn't give each
    ///         channel 1 to 3 bytes, or that has more than 24 bits.
    PCMSource(unsigned char firstChannel, Templates::SharedPtr<DataIO::SliceSource> stream, PCMLayout const & layout);
    ~PCMSource() override;

    DataIO::SliceReader & source() override;
    DataIO::SliceReader const & source() const override;

private:
    DataIO::SliceReader reader_;
};

}}}}
