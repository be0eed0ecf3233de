#pragma once

#include "Templates/Containers.h"
#include "Types/SimpleDataType.h"
#include "Types/UUID.h"

namespace Vantry { namespace Types {

/// Points to a metadata set by the 16 bytes of its instance identifier. A
/// StrongReference owns the set, a WeakReference only names it.
class VANTRY_EXPORT Reference : public SimpleDataType
{
public:
    ~Reference() override;

    unsigned char const * rawBuffer() const override;
    unsigned short serializedSize() const override;

    /// The identifier of the set.
    virtual UUID const & uuid() const;

    /// Bytes of the identifier: 16.
    virtual int size() const;

    /// The identifier as dotted bytes, "00.01.02" and on.
    virtual Templates::wstring toString() const;

    /// A byte of the identifier, counted from 0; the index is not checked.
    unsigned char operator[](int index) const { return uuid_.rawBuffer()[index]; }

    /// Compare the identifiers byte by byte.
    bool equals(Reference const & other) const { return uuid_ == other.uuid_; }
    bool isLess(Reference const & other) const { return uuid_ < other.uuid_; }

protected:
    /// Loads dotted bytes.
    explicit Reference(unsigned short const * text);
    explicit Reference(unsigned char const * bytes);
    explicit Reference(KLV::Value & source);
    explicit Reference(UUID const & uuid);
    Reference(Reference const &) = default;
    Reference & operator=(Reference const &) = default;

private:
    UUID uuid_;
};

}}
