#pragma once

#include "Types/Identifiers.h"
#include "Types/Visitors/Visitor.h"

namespace Vantry { namespace Types { namespace Visitors {

/// Tells the identifier of what it visits; `Unknown` before.
class VANTRY_EXPORT GetIdentifierVisitor : public Visitor
{
public:
    ~GetIdentifierVisitor() override;

    void visit(J2KQuantisationDefault const &) override { identifier_ = Identifiers::J2KQuantisationDefault; }
    void visit(J2KCodingStyleDefault const &) override { identifier_ = Identifiers::J2KCodingStyleDefault; }
    void visit(J2KPictureComponent const &) override { identifier_ = Identifiers::J2KPictureComponentType; }
    void visit(DataValue const &) override { identifier_ = Identifiers::DataValue; }
    void visit(StrongReference const &) override { identifier_ = Identifiers::StrongReference; }
    void visit(WeakReference const &) override { identifier_ = Identifiers::WeakReference; }
    void visit(Unknown const &) override { identifier_ = Identifiers::Unknown; }
    void visit(VersionType const &) override { identifier_ = Identifiers::VersionType; }
    void visit(UUID const &) override { identifier_ = Identifiers::UUID; }
    void visit(UTF16String const &) override { identifier_ = Identifiers::UTF16CharString; }
    void visit(UTF16 const &) override { identifier_ = Identifiers::UTF16; }
    void visit(UniversalLabel const &) override { identifier_ = Identifiers::UL; }
    void visit(UMID64 const &) override { identifier_ = Identifiers::UMID64; }
    void visit(UMID32 const &) override { identifier_ = Identifiers::UMID32; }
    void visit(UInt8 const &) override { identifier_ = Identifiers::UInt8; }
    void visit(UInt64 const &) override { identifier_ = Identifiers::UInt64; }
    void visit(UInt32 const &) override { identifier_ = Identifiers::UInt32; }
    void visit(UInt16 const &) override { identifier_ = Identifiers::UInt16; }
    void visit(Timestamp const &) override { identifier_ = Identifiers::TimestampType; }
    void visit(SignalStandard const &) override { identifier_ = Identifiers::SignalStandard; }
    void visit(RGBALayout const &) override { identifier_ = Identifiers::RGBALayout; }
    void visit(Rational const &) override { identifier_ = Identifiers::Rational; }
    void visit(ProductVersion const &) override { identifier_ = Identifiers::ProductVersionType; }
    void visit(Position const &) override { identifier_ = Identifiers::Position; }
    void visit(Orientation const &) override { identifier_ = Identifiers::Orientation; }
    void visit(LocalTag const &) override { identifier_ = Identifiers::LocalTag; }
    void visit(Length const &) override { identifier_ = Identifiers::Length; }
    void visit(ISO7String const &) override { identifier_ = Identifiers::ISO7bitCharString; }
    void visit(Int8 const &) override { identifier_ = Identifiers::Int8; }
    void visit(Int64 const &) override { identifier_ = Identifiers::Int64; }
    void visit(Int32 const &) override { identifier_ = Identifiers::Int32; }
    void visit(Int16 const &) override { identifier_ = Identifiers::Int16; }
    void visit(DataStream const &) override { identifier_ = Identifiers::DataStream; }
    void visit(Boolean const &) override { identifier_ = Identifiers::Boolean; }
    void visit(Batch const &) override { identifier_ = Identifiers::Batch; }
    void visit(Array const &) override { identifier_ = Identifiers::Array; }

    Identifiers::Identifier identifier() const noexcept { return identifier_; }

private:
    Identifiers::Identifier identifier_ = Identifiers::Unknown;
};

}}}
