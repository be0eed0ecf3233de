// A small application outside the tree: it reaches headers in both forms and
// catches what the library throws.

#include "Exceptions/NotFound.h"
#include <Vantry/Exceptions/BaseException.h>

#if __has_include("Exceptions/Check.h") || __has_include(<Vantry/Exceptions/Check.h>)
#error "internal headers are installed"
#endif

int main()
{
    try
    {
        throw Vantry::Exceptions::NotFound("outside", __FILE__, __LINE__);
    }
    catch (Vantry::Exceptions::BaseException const & failure)
    {
        return failure.message() != nullptr ? 0 : 1;
    }
}
