#pragma once

#include "Platform/Export.h"
#include "Templates/auto_ptr.h"
#include "Types/Visitors/NonConstVisitor.h"
#include "Types/Visitors/Visitor.h"

namespace Vantry { namespace Types {

/// What makes `Self`, a class of values, complete on top of `Base`: it is
/// visited as itself, copied as itself and compared with its like alone.
///
///     class Length : public Concrete<Length, Int64> { ... };
///
/// `Base` derives from SimpleDataType or Collection. It may have `equals` and
/// `isLess`, on which the comparisons of the class stand.
template <class Self, class Base>
class VANTRY_EXPORT Concrete : public Base
{
public:
    void accept(Visitors::NonConstVisitor & visitor) override;
    void accept(Visitors::Visitor & visitor) const override;
    Templates::auto_ptr<typename Base::Cloned> clone() const override;

    friend bool operator==(Self const & left, Self const & right) { return left.equals(right); }
    friend bool operator!=(Self const & left, Self const & right) { return !left.equals(right); }
    friend bool operator<(Self const & left, Self const & right) { return left.isLess(right); }

protected:
    using Base::Base;
    Concrete() = default;
};

template <class Self, class Base>
void Concrete<Self, Base>::accept(Visitors::NonConstVisitor & visitor)
{
    visitor.visit(static_cast<Self &>(*this));
}

template <class Self, class Base>
void Concrete<Self, Base>::accept(Visitors::Visitor & visitor) const
{
    visitor.visit(static_cast<Self const &>(*this));
}

template <class Self, class Base>
Templates::auto_ptr<typename Base::Cloned> Concrete<Self, Base>::clone() const
{
    return Templates::auto_ptr<typename Base::Cloned>(new Self(static_cast<Self const &>(*this)));
}

}}
