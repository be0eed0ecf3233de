#include "Exceptions/InvalidLength.h"

#include "Templates/Containers.h"

namespace Vantry { namespace Exceptions {

class InvalidLength::Data
{
public:
    VANTRY_CLASS_ALLOCATION

    Data(unsigned char const * data, UInt64 length) : bytes(data, data + length) {}

    Templates::vector<unsigned char> bytes;
};

InvalidLength::InvalidLength(char const * message, char const * file, int line) :
    BaseException(message, file, line), data_(nullptr)
{
}

InvalidLength::InvalidLength(unsigned short const * message, char const * file, int line) :
    BaseException(message, file, line), data_(nullptr)
{
}

InvalidLength::InvalidLength(unsigned char const * data, UInt64 dataLength, char const * message, char const * file,
                             int line) :
    BaseException(message, file, line), data_(data != nullptr && dataLength != 0 ? new Data(data, dataLength) : nullptr)
{
}

InvalidLength::InvalidLength(InvalidLength const & other) :
    BaseException(other), data_(other.data_ != nullptr ? new Data(*other.data_) : nullptr)
{
}

InvalidLength & InvalidLength::operator=(InvalidLength const & other)
{
    if (this == &other)
        return *this;

    Data * const copy = other.data_ != nullptr ? new Data(*other.data_) : nullptr;
    BaseException::operator=(other);
    delete data_;
    data_ = copy;
    return *this;
}

InvalidLength::~InvalidLength()
{
    delete data_;
}

unsigned char const * InvalidLength::readData() const
{
    return data_ != nullptr ? data_->bytes.data() : nullptr;
}

UInt64 InvalidLength::readDataLength() const
{
    return data_ != nullptr ? data_->bytes.size() : 0;
}

}}
