#include "Exceptions/NoFactory.h"
#include "Types/Array.h"
#include "Types/Batch.h"
#include "Types/Boolean.h"
#include "Types/Factories/BaseTypeFactory.h"
#include "Types/Length.h"
#include "Types/Orientation.h"
#include "Types/Position.h"
#include "Types/SignalStandard.h"
#include "Types/UInt64.h"
#include "Types/Unknown.h"
#include "Types/Visitors/DelegateToBaseVisitor.h"
#include "Types/Visitors/GetIdentifierVisitor.h"
#include "Types/Visitors/GetVisitor.h"
#include "Types/Visitors/NonConstDelegateToBaseVisitor.h"
#include "Types/Visitors/NonConstNullVisitor.h"
#include "support/BytesSink.h"
#include "support/Failure.h"
#include "support/Values.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vantry { namespace Tests {

namespace {

namespace Identifiers = Types::Identifiers;

Types::Factories::BaseTypeFactory & factory()
{
    return Types::Factories::BaseTypeFactory::instance();
}

class Doubler : public Types::Visitors::NonConstDelegateToBaseVisitor
{
public:
    using NonConstDelegateToBaseVisitor::visit;

    void visit(Types::Int64 & number) override { number = Types::Int64(2 * number.value()); }
    void visit(Types::UInt8 & number) override { number = Types::UInt8(static_cast<UInt8>(2 * number.value())); }
};

class Summer : public Types::Visitors::DelegateToBaseVisitor
{
public:
    using DelegateToBaseVisitor::visit;

    void visit(Types::Int64 const & number) override { sum += number.value(); }
    void visit(Types::UInt8 const & number) override { sum += number.value(); }

    Int64 sum = 0;
};

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

TEST(Visitor, TakesDerivedClassesForTheirBase)
{
    Types::Length length(10);
    Types::Position position(20);
    Types::Orientation orientation(3);
    Types::SignalStandard standard(4);
    Types::Boolean other(true);
    Types::BaseType * const VALUES[] = {&length, &position, &orientation, &standard, &other};

    Doubler doubler;
    Summer summer;
    for (Types::BaseType * value : VALUES)
    {
        value->accept(doubler);
        value->accept(summer);
    }
    EXPECT_EQ(summer.sum, 2 * (10 + 20 + 3 + 4));
}

TEST(Visitor, AsksForAClass)
{
    Types::Length const length(1);
    Types::BaseType const & value = length;
    EXPECT_EQ(Types::Visitors::GetVisitor<Types::Length>(value).get(), &length);
    EXPECT_EQ(Types::Visitors::GetVisitor<Types::Int64>(value).get(), nullptr);
    EXPECT_EQ(Types::Visitors::GetVisitor<Types::Array>(value).get(), nullptr);
}

TEST(BaseTypeFactory, TakesNewTypes)
{
    EXPECT_TRUE(factory().registerSimpleType(
        Identifiers::DeltaEntryType,
        [](KLV::Value & source) { return Templates::auto_ptr<Types::SimpleDataType>(new Types::Boolean(source)); }));
    EXPECT_TRUE(factory().registerCollectionType(
        Identifiers::Key, [](KLV::Value & source, Identifiers::Identifier elementType)
        { return Templates::auto_ptr<Types::Collection>(new Types::Batch(source, elementType)); }));

    BytesSource source(hex("00000001 00000002 0100"));
    KLV::Value value(source, 10);
    auto const batch = factory().create(value, Identifiers::Key, Identifiers::DeltaEntryType);
    EXPECT_NE(Types::Visitors::GetVisitor<Types::Boolean>(batch->at(0)).get(), nullptr);

    factory().registerSimpleType(Identifiers::DeltaEntryType, [](KLV::Value & source)
                                 { return Templates::auto_ptr<Types::SimpleDataType>(new Types::Unknown(source)); });
}

}}
