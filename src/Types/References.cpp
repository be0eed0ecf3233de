#include "Types/StrongReference.h"
#include "Types/WeakReference.h"

namespace Vantry { namespace Types {

Reference::Reference(unsigned short const * text) : uuid_(text, StringRepresentationEncodingType::DOTTED_BYTES) {}

Reference::Reference(unsigned char const * bytes) : uuid_(bytes) {}

Reference::Reference(KLV::Value & source) : uuid_(source) {}

Reference::Reference(UUID const & uuid) : uuid_(uuid) {}

Reference::~Reference() = default;

unsigned char const * Reference::rawBuffer() const
{
    return uuid_.rawBuffer();
}

unsigned short Reference::serializedSize() const
{
    return uuid_.serializedSize();
}

UUID const & Reference::uuid() const
{
    return uuid_;
}

int Reference::size() const
{
    return uuid_.size();
}

Templates::wstring Reference::toString() const
{
    return uuid_.toString(StringRepresentationEncodingType::DOTTED_BYTES);
}

template class Concrete<StrongReference, Reference>;
template class Concrete<WeakReference, Reference>;

}}
