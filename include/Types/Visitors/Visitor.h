#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Types { namespace Visitors {

/// Does something with a value according to its class: `value.accept(visitor)`
/// calls the operation of the value's own class.
///
/// The operations keep their order, in which callers built against an older
/// library find them.
class VANTRY_EXPORT Visitor
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~Visitor();

    virtual void visit(J2KQuantisationDefault const & value) = 0;
    virtual void visit(J2KCodingStyleDefault const & value) = 0;
    virtual void visit(J2KPictureComponent const & value) = 0;
    virtual void visit(DataValue const & value) = 0;
    virtual void visit(StrongReference const & value) = 0;
    virtual void visit(WeakReference const & value) = 0;
    virtual void visit(Unknown const & value) = 0;
    virtual void visit(VersionType const & value) = 0;
    virtual void visit(UUID const & value) = 0;
    virtual void visit(UTF16String const & value) = 0;
    virtual void visit(UTF16 const & value) = 0;
    virtual void visit(UniversalLabel const & value) = 0;
    virtual void visit(UMID64 const & value) = 0;
    virtual void visit(UMID32 const & value) = 0;
    virtual void visit(UInt8 const & value) = 0;
    virtual void visit(UInt64 const & value) = 0;
    virtual void visit(UInt32 const & value) = 0;
    virtual void visit(UInt16 const & value) = 0;
    virtual void visit(Timestamp const & value) = 0;
    virtual void visit(SignalStandard const & value) = 0;
    virtual void visit(RGBALayout const & value) = 0;
    virtual void visit(Rational const & value) = 0;
    virtual void visit(ProductVersion const & value) = 0;
    virtual void visit(Position const & value) = 0;
    virtual void visit(Orientation const & value) = 0;
    virtual void visit(LocalTag const & value) = 0;
    virtual void visit(Length const & value) = 0;
    virtual void visit(ISO7String const & value) = 0;
    virtual void visit(Int8 const & value) = 0;
    virtual void visit(Int64 const & value) = 0;
    virtual void visit(Int32 const & value) = 0;
    virtual void visit(Int16 const & value) = 0;
    virtual void visit(DataStream const & value) = 0;
    virtual void visit(Boolean const & value) = 0;
    virtual void visit(Batch const & value) = 0;
    virtual void visit(Array const & value) = 0;
};

}}}
