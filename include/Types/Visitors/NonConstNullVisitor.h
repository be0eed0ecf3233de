#pragma once

#include "Types/Visitors/NonConstVisitor.h"

namespace Vantry { namespace Types { namespace Visitors {

/// A visitor that does nothing, for those that change a few classes only.
class VANTRY_EXPORT NonConstNullVisitor : public NonConstVisitor
{
public:
    ~NonConstNullVisitor() override;

    void visit(J2KQuantisationDefault &) override {}
    void visit(J2KCodingStyleDefault &) override {}
    void visit(J2KPictureComponent &) override {}
    void visit(DataValue &) override {}
    void visit(SignalStandard &) override {}
    void visit(Orientation &) override {}
    void visit(RGBALayout &) override {}
    void visit(StrongReference &) override {}
    void visit(WeakReference &) override {}
    void visit(Unknown &) override {}
    void visit(VersionType &) override {}
    void visit(UUID &) override {}
    void visit(UTF16String &) override {}
    void visit(UTF16 &) override {}
    void visit(UniversalLabel &) override {}
    void visit(UMID64 &) override {}
    void visit(UMID32 &) override {}
    void visit(UInt8 &) override {}
    void visit(UInt64 &) override {}
    void visit(UInt32 &) override {}
    void visit(UInt16 &) override {}
    void visit(Timestamp &) override {}
    void visit(Rational &) override {}
    void visit(ProductVersion &) override {}
    void visit(Position &) override {}
    void visit(LocalTag &) override {}
    void visit(Length &) override {}
    void visit(ISO7String &) override {}
    void visit(Int8 &) override {}
    void visit(Int64 &) override {}
    void visit(Int32 &) override {}
    void visit(Int16 &) override {}
    void visit(DataStream &) override {}
    void visit(Boolean &) override {}
    void visit(Batch &) override {}
    void visit(Array &) override {}
};

}}}
