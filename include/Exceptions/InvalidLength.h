#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A length promises more, or less, than there is. Code 39.
///
/// It may carry the bytes that were read when the length proved bad.
class VANTRY_EXPORT InvalidLength : public BaseException
{
public:
    InvalidLength(char const * message, char const * file, int line);
    InvalidLength(unsigned short const * message, char const * file, int line);

    /// Copies `dataLength` bytes from `data`.
    InvalidLength(unsigned char const * data, UInt64 dataLength, char const * message, char const * file, int line);

    InvalidLength(InvalidLength const & other);
    InvalidLength & operator=(InvalidLength const & other);
    ~InvalidLength() override;

    Int32 errorCode() const override;

    /// The bytes read before the failure; null when there are none.
    unsigned char const * readData() const;
    UInt64 readDataLength() const;

private:
    class Data;
    Data * data_;
};

}}
