#include "DistinguishedValue.h"

#include "DataIO/Memory/MemoryDataSource.h"
#include "Exceptions/InvalidLength.h"
#include "KLV/Value.h"
#include "Types/Factories/BaseTypeFactory.h"

namespace Vantry { namespace Schema {

Templates::auto_ptr<Types::BaseType const> makeDistinguished(Row<unsigned char> const & bytes,
                                                             Types::Identifiers::Identifier type,
                                                             Types::Identifiers::Identifier subType)
{
    bool const isCollection = type == Types::Identifiers::Array || type == Types::Identifiers::Batch;
    Types::Factories::BaseTypeFactory & factory = Types::Factories::BaseTypeFactory::instance();
    DataIO::Memory::MemoryDataSource source(bytes.first, bytes.count);
    KLV::Value value(source, bytes.count);

    Templates::auto_ptr<Types::BaseType const> result;
    if (isCollection)
        result = factory.create(value, type, subType);
    else
        result = factory.create(value, type);
    if (value.remaining() != 0)
        throw Exceptions::InvalidLength("Bytes are left behind the value", __FILE__, __LINE__);
    return result;
}

}}
