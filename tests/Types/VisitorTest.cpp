#include "Types/Factories/BaseTypeFactory.h"
#include "Types/Visitors/GetIdentifierVisitor.h"
#include "Types/Visitors/NonConstNullVisitor.h"
#include "support/BytesSink.h"
#include "support/Failure.h"
#include "support/Values.h"

#include <memory>

namespace Vantry { namespace Tests {

namespace {

namespace Identifiers = Types::Identifiers;

Types::Factories::BaseTypeFactory & factory()
{
    return Types::Factories::BaseTypeFactory::instance();
}

}

TEST(Visitor, MeetsEachClassAsItself)
{
    for (int i = 0; i <= Identifiers::J2KQuantisationDefault; ++i)
    {
        auto const identifier = static_cast<Identifiers::Identifier>(i);
        SCOPED_TRACE(i);
        BytesSource source(repeated(64, 0));
        KLV::Value bytes(source, 64);
        std::unique_ptr<Types::BaseType> value;
        if (factory().hasCollectionType(identifier))
            value.reset(factory().create(bytes, identifier, Identifiers::UInt8).release());
        else if (factory().hasSimpleType(identifier))
            value.reset(factory().create(bytes, identifier).release());
        else
        {
            EXPECT_TRUE(identifier == Identifiers::DUMMY_TO_REPLACE_EDIT_RATE || identifier == Identifiers::Key);
            EXPECT_FAILURE(NoFactory, "No Factory for type", factory().create(bytes, identifier));
            EXPECT_FAILURE(NoFactory, "No Factory for type", factory().create(bytes, identifier, Identifiers::UInt8));
            continue;
        }

        // Index entries come without the table that tells their form.
        bool const indexEntry = identifier == Identifiers::DeltaEntryType || identifier == Identifiers::IndexEntryType;
        Types::Visitors::GetIdentifierVisitor visitor;
        value->accept(visitor);
        EXPECT_EQ(visitor.identifier(), indexEntry ? Identifiers::Unknown : identifier);

        Types::Visitors::NonConstNullVisitor nothing;
        value->accept(nothing);
        Bytes const wire = serialized(*value);
        EXPECT_EQ(wire, repeated(wire.size(), 0));
    }
}

}}
