#include "Exceptions/BadAlloc.h"

#include "Exceptions/Check.h"
#include "Platform/Allocation.h"
#include "Platform/WideLiteral.h"
#include "support/Failure.h"
#include "support/ScarceMemory.h"

#include <cstdint>
#include <string>

using namespace Vantry;
using Platform::wide;

namespace {

std::string text(unsigned short const * wideText)
{
    return Platform::wstringToString(wideText).c_str();
}

// Throws and catches, as the family and as itself.
template <class Class>
void expectClass(Int32 code, char const * name)
{
    SCOPED_TRACE(name);
    bool caught = false;
    try
    {
        try
        {
            throw Class("text", "src/A.cpp", 12);
        }
        catch (Exceptions::BaseException const & failure)
        {
            EXPECT_EQ(failure.errorCode(), code);
            EXPECT_EQ(text(failure.what()),
                      "Exception 'Vantry::Exceptions::" + std::string(name) + "' (src/A.cpp:12): text");
            throw;
        }
    }
    catch (Class const & failure)
    {
        caught = true;
        EXPECT_EQ(text(failure.message()), "text");
    }
    EXPECT_TRUE(caught);
}

}

// The codes leave gaps, behind which some of these come.
TEST(Exceptions, HaveTheirNamesAndCodes)
{
#define EXPECT_CLASS(Class, code) expectClass<Exceptions::Class>(code, #Class)
    EXPECT_CLASS(BadAlloc, 2);
    EXPECT_CLASS(InvalidPosition, 12);
    EXPECT_CLASS(InvalidPartitionKind, 21);
    EXPECT_CLASS(IOError, 26);
    EXPECT_CLASS(UniversalLabelCollision, 34);
    EXPECT_CLASS(NotImplemented, 37);
    EXPECT_CLASS(InvalidState, 43);
}

TEST(Exceptions, TellWhereTheyCameFrom)
{
    Exceptions::IOError failure("src/A.cpp", 7);
    EXPECT_EQ(text(failure.message()), "");
    unsigned short const * const what = failure.what();
    EXPECT_EQ(text(what), "Exception 'Vantry::Exceptions::IOError' (src/A.cpp:7): ");

    failure.filename("src/größe.cpp");
    failure.lineNumber(-8);
    EXPECT_EQ(text(failure.filename()), "src/größe.cpp");
    EXPECT_EQ(failure.lineNumber(), -8);
    EXPECT_EQ(failure.what(), what) << "composed once";
    EXPECT_EQ(text(Exceptions::IOError(wide(u"größe"), "src/größe.cpp", -8).what()),
              "Exception 'Vantry::Exceptions::IOError' (src/größe.cpp:-8): größe");
}

TEST(Exceptions, InvalidLengthKeepsTheBytesRead)
{
    Exceptions::InvalidLength const without("text", "src/A.cpp", 1);
    EXPECT_EQ(without.readData(), nullptr);
    EXPECT_EQ(without.readDataLength(), 0u);

    std::string bytes = "read";
    auto const * const data = reinterpret_cast<unsigned char const *>(bytes.data());
    Exceptions::InvalidLength copy(without);
    {
        Exceptions::InvalidLength const with(data, bytes.size(), "text", "src/A.cpp", 1);
        copy = with;
    }
    bytes = "gone";
    ASSERT_EQ(copy.readDataLength(), 4u);
    EXPECT_EQ(copy.readData()[0], 'r');
}

TEST(Checks, JoinConditionAndText)
{
#define WIDTH 4
    int const align_ = 0;
    VANTRY_CHECK(align_ == 0, InvalidValue, "never seen");
    EXPECT_FAILURE(InvalidValue, "align_ > 0: Alignment must be higher than zero",
                   VANTRY_CHECK(align_ > 0, InvalidValue, "Alignment must be higher than zero"));
    EXPECT_FAILURE(InvalidValue, "align_ == WIDTH: breite größe",
                   VANTRY_CHECK(align_ == WIDTH, InvalidValue, wide(u"breite größe").text));
    EXPECT_FAILURE(IOError, "file_ != 0: xy",
                   VANTRY_CHECK_TEXT(align_ > 0, "file_ != 0", IOError, Templates::string("x") + "y"));
    EXPECT_FAILURE(NotFound, "alone", VANTRY_FAIL(NotFound, Platform::stringToWstring("alone")));

    try
    {
        VANTRY_FAIL(NotFound, "here");
    }
    catch (Exceptions::NotFound const & failure)
    {
        EXPECT_EQ(text(failure.filename()), "tests/Exceptions/ExceptionsTest.cpp");
        EXPECT_EQ(failure.lineNumber(), __LINE__ - 5);
    }
}

TEST(Allocation, FailsWithBadAlloc)
{
    struct Object
    {
        VANTRY_CLASS_ALLOCATION
        long value[2];
    };

    EXPECT_FAILURE(BadAlloc, "Out of memory", Object::operator new(SIZE_MAX / 2));
    EXPECT_FAILURE(BadAlloc, "Out of memory", Templates::vector<Object>().reserve(PTRDIFF_MAX / sizeof(Object)));

    void * memory = Platform::malloc_alloc::allocate(16);
    *static_cast<char *>(memory) = 'k';
    memory = Platform::malloc_alloc::reallocate(memory, 16, 1 << 20);
    EXPECT_EQ(*static_cast<char *>(memory), 'k');
    EXPECT_EQ(Platform::malloc_alloc::reallocate(memory, 1 << 20, SIZE_MAX / 2), nullptr);
    memory = Platform::malloc_alloc::reallocate(memory, 1 << 20, 0);
    EXPECT_NE(memory, nullptr);
    Platform::malloc_alloc::deallocate(memory, 0);
}
