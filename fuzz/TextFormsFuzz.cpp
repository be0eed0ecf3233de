// Any text into every loader of every class: it is refused by one of the
// library's exceptions, or what it says is rendered and loaded again.

#include "Exceptions/BaseException.h"
#include "KLV/Key.h"
#include "KLV/TextForms.h"
#include "Platform/Text.h"
#include "Templates/Containers.h"
#include "Types/LocalTag.h"
#include "Types/UMID32.h"
#include "Types/UMID64.h"
#include "Types/UUID.h"
#include "Types/UniversalLabel.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

using namespace Vantry;

using Encoding = Types::StringRepresentationEncodingType;

template <class Identifier>
std::optional<Identifier> load(Templates::wstring const & text, Encoding encoding)
{
    try
    {
        return Identifier(text.c_str(), encoding);
    }
    catch (Exceptions::BaseException const &)
    {
        return std::nullopt;
    }
}

template <class Identifier>
void tryAllForms(Templates::wstring const & text)
{
    for (int form = 0; form <= 5; ++form)
    {
        Encoding const encoding = static_cast<Encoding>(form);
        std::optional<Identifier> const loaded = load<Identifier>(text, encoding);
        if (!loaded)
            continue;

        // With nothing but zeros behind its prefix an object identifier is
        // written as the prefix alone, which can't be loaded.
        Templates::wstring const rendered = loaded->toString(encoding);
        std::optional<Identifier> const again = load<Identifier>(rendered, encoding);
        bool const isPrefixAlone =
            !again && load<Identifier>(rendered + Templates::wstring{'.', '0'}, encoding) == loaded;
        if (!isPrefixAlone && again != loaded)
            std::abort();
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    std::string const bytes(reinterpret_cast<char const *>(data), size);
    Templates::wstring const text = Platform::stringToWstring(bytes.c_str());
    tryAllForms<KLV::Key>(text);
    tryAllForms<Types::LocalTag>(text);
    tryAllForms<Types::UniversalLabel>(text);
    tryAllForms<Types::UUID>(text);
    tryAllForms<Types::UMID32>(text);
    tryAllForms<Types::UMID64>(text);
    return 0;
}
