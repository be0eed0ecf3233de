#include "Essence/Converters/S331MMuxHelpers/PCMSource.h"

#include <utility>

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

PCMSource::PCMSource(unsigned char firstChannel, Templates::SharedPtr<DataIO::SliceSource> stream,
                     PCMLayout const & layout) :
    PCMBasicSource(firstChannel, layout), reader_(std::move(stream))
{
}

PCMSource::~PCMSource() = default;

DataIO::SliceReader & PCMSource::source()
{
    return reader_;
}

DataIO::SliceReader const & PCMSource::source() const
{
    return reader_;
}

}}}}
