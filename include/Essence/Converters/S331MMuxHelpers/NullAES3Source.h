#pragma once

#include "Essence/Converters/S331MMuxHelpers/BasicSource.h"

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

/// Fills two channels that no stream takes with silence, without an end.
class VANTRY_EXPORT NullAES3Source : public BasicSource
{
public:
    explicit NullAES3Source(unsigned char firstChannel) noexcept;
    ~NullAES3Source() override;

    void info(unsigned char & channels, unsigned char & bits) override;
    void prepare(unsigned short count) override;
    bool endOfStream() const override;
    unsigned char * writeSamples(unsigned char * out, unsigned short count) override;
};

}}}}
