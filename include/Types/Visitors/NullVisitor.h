#pragma once

#include "Types/Visitors/Visitor.h"

namespace Vantry { namespace Types { namespace Visitors {

/// A visitor that does nothing, for those that handle a few classes only.
class VANTRY_EXPORT NullVisitor : public Visitor
{
public:
    ~NullVisitor() override;

    void visit(J2KQuantisationDefault const &) override {}
    void visit(J2KCodingStyleDefault const &) override {}
    void visit(J2KPictureComponent const &) override {}
    void visit(DataValue const &) override {}
    void visit(StrongReference const &) override {}
    void visit(WeakReference const &) override {}
    void visit(Unknown const &) override {}
    void visit(VersionType const &) override {}
    void visit(UUID const &) override {}
    void visit(UTF16String const &) override {}
    void visit(UTF16 const &) override {}
    void visit(UniversalLabel const &) override {}
    void visit(UMID64 const &) override {}
    void visit(UMID32 const &) override {}
    void visit(UInt8 const &) override {}
    void visit(UInt64 const &) override {}
    void visit(UInt32 const &) override {}
    void visit(UInt16 const &) override {}
    void visit(Timestamp const &) override {}
    void visit(SignalStandard const &) override {}
    void visit(RGBALayout const &) override {}
    void visit(Rational const &) override {}
    void visit(ProductVersion const &) override {}
    void visit(Position const &) override {}
    void visit(Orientation const &) override {}
    void visit(LocalTag const &) override {}
    void visit(Length const &) override {}
    void visit(ISO7String const &) override {}
    void visit(Int8 const &) override {}
    void visit(Int64 const &) override {}
    void visit(Int32 const &) override {}
    void visit(Int16 const &) override {}
    void visit(DataStream const &) override {}
    void visit(Boolean const &) override {}
    void visit(Batch const &) override {}
    void visit(Array const &) override {}
};

}}}
