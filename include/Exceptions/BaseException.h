#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace Exceptions {

/// What all failures of the library are. Each class of this one-level tree
/// has a code that stays with it for good.
///
/// Text is wide: UTF-16 in 16-bit elements, owned by the exception. One
/// exception object is not for several threads at once, since `what` fills a
/// cache.
class VANTRY_EXPORT BaseException
{
public:
    VANTRY_CLASS_ALLOCATION

    /// An empty message, thrown at `line` of `file`.
    BaseException(char const * file, int line);

    BaseException(unsigned short const * message, char const * file, int line);

    /// The message is widened from UTF-8.
    BaseException(char const * message, char const * file, int line);

    BaseException(BaseException const & other);
    BaseException & operator=(BaseException const & other);
    virtual ~BaseException();

    /// The text as it was given.
    virtual unsigned short const * message() const;

    /// `Exception 'Vantry::Exceptions::IOError' (src/X.cpp:12): ` and the
    /// message. It is composed on the first call and then kept, by copies too.
    virtual unsigned short const * what() const;

    /// The number of the class.
    virtual Int32 errorCode() const = 0;

    /// Source file of the throw site.
    unsigned short const * filename() const;
    void filename(char const * file);

    /// Source line of the throw site.
    int lineNumber() const;
    void lineNumber(int line);

private:
    class Impl;
    Impl * impl_;
};

}}
