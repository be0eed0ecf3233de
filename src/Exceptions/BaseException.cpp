#include "Exceptions/BaseException.h"

#include "Platform/Text.h"
#include "Platform/TypeName.h"
#include "Platform/WideLiteral.h"

#include <string>
#include <typeinfo>

namespace Vantry { namespace Exceptions {

namespace {

constexpr auto NO_TEXT = Platform::wide(u"");

}

class BaseException::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Templates::wstring const & theMessage, char const * file, int theLine) :
        message(theMessage), filename(Platform::stringToWstring(file)), line(theLine)
    {
    }

    // Makes a record, or none when memory is out. Reporting that would need
    // another exception with a record of its own, and so on: while one record
    // is being made on a thread, others there do without.
    template <class Make>
    static Impl * make(Make const & makeRecord) noexcept
    {
        static thread_local bool busy = false;
        if (busy)
            return nullptr;

        busy = true;
        Impl * record = nullptr;
        try
        {
            record = makeRecord();
        }
        catch (...)
        {
            record = nullptr;
        }
        busy = false;
        return record;
    }

    Templates::wstring message;
    Templates::wstring filename;
    int line;
    Templates::wstring what;
};

BaseException::BaseException(char const * file, int line) : BaseException(NO_TEXT.text, file, line) {}

BaseException::BaseException(unsigned short const * message, char const * file, int line) :
    impl_(Impl::make([&] { return new Impl(message, file, line); }))
{
}

BaseException::BaseException(char const * message, char const * file, int line) :
    impl_(Impl::make([&] { return new Impl(Platform::stringToWstring(message), file, line); }))
{
}

BaseException::BaseException(BaseException const & other) :
    impl_(other.impl_ == nullptr ? nullptr : Impl::make([&] { return new Impl(*other.impl_); }))
{
}

BaseException & BaseException::operator=(BaseException const & other)
{
    if (this == &other)
        return *this;

    Impl * const copy = other.impl_ == nullptr ? nullptr : Impl::make([&] { return new Impl(*other.impl_); });
    delete impl_;
    impl_ = copy;
    return *this;
}

BaseException::~BaseException()
{
    delete impl_;
}

unsigned short const * BaseException::message() const
{
    return impl_ != nullptr ? impl_->message.c_str() : NO_TEXT.text;
}

unsigned short const * BaseException::what() const
{
    if (impl_ == nullptr)
        return NO_TEXT;

    if (impl_->what.empty())
    {
        Templates::wstring text = Platform::stringToWstring("Exception '");
        text += Platform::stringToWstring(Platform::typeName(typeid(*this)).c_str());
        text += Platform::stringToWstring("' (");
        text += impl_->filename;
        text += Platform::stringToWstring((":" + std::to_string(impl_->line) + "): ").c_str());
        text += impl_->message;
        impl_->what.swap(text);
    }

    return impl_->what.c_str();
}

unsigned short const * BaseException::filename() const
{
    return impl_ != nullptr ? impl_->filename.c_str() : NO_TEXT.text;
}

void BaseException::filename(char const * file)
{
    if (impl_ != nullptr)
        impl_->filename = Platform::stringToWstring(file);
}

int BaseException::lineNumber() const
{
    return impl_ != nullptr ? impl_->line : 0;
}

void BaseException::lineNumber(int line)
{
    if (impl_ != nullptr)
        impl_->line = line;
}

}}
