#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Types { namespace Visitors {

/// A Visitor that may change what it visits.
///
/// The operations keep their order, which is not that of Visitor.
class VANTRY_EXPORT NonConstVisitor
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~NonConstVisitor();

    virtual void visit(J2KQuantisationDefault & value) = 0;
    virtual void visit(J2KCodingStyleDefault & value) = 0;
    virtual void visit(J2KPictureComponent & value) = 0;
    virtual void visit(DataValue & value) = 0;
    virtual void visit(SignalStandard & value) = 0;
    virtual void visit(Orientation & value) = 0;
    virtual void visit(RGBALayout & value) = 0;
    virtual void visit(StrongReference & value) = 0;
    virtual void visit(WeakReference & value) = 0;
    virtual void visit(Unknown & value) = 0;
    virtual void visit(VersionType & value) = 0;
    virtual void visit(UUID & value) = 0;
    virtual void visit(UTF16String & value) = 0;
    virtual void visit(UTF16 & value) = 0;
    virtual void visit(UniversalLabel & value) = 0;
    virtual void visit(UMID64 & value) = 0;
    virtual void visit(UMID32 & value) = 0;
    virtual void visit(UInt8 & value) = 0;
    virtual void visit(UInt64 & value) = 0;
    virtual void visit(UInt32 & value) = 0;
    virtual void visit(UInt16 & value) = 0;
    virtual void visit(Timestamp & value) = 0;
    virtual void visit(Rational & value) = 0;
    virtual void visit(ProductVersion & value) = 0;
    virtual void visit(Position & value) = 0;
    virtual void visit(LocalTag & value) = 0;
    virtual void visit(Length & value) = 0;
    virtual void visit(ISO7String & value) = 0;
    virtual void visit(Int8 & value) = 0;
    virtual void visit(Int64 & value) = 0;
    virtual void visit(Int32 & value) = 0;
    virtual void visit(Int16 & value) = 0;
    virtual void visit(DataStream & value) = 0;
    virtual void visit(Boolean & value) = 0;
    virtual void visit(Batch & value) = 0;
    virtual void visit(Array & value) = 0;
};

}}}
