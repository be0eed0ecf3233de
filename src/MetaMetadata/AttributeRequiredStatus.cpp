#include "MetaMetadata/AttributeRequiredStatus.h"

#include "Exceptions/Check.h"
#include "Exceptions/NotFound.h"
#include "LibrarySingleton.h"

#include <algorithm>
#include <string>

namespace Vantry { namespace MetaMetadata {

namespace {

class AttributeRequiredStatus_impl : public AttributeRequiredStatus
{
public:
    AttributeRequiredStatus_impl()
    {
        add(Req, "Req");
        add(EReq, "E/req");
        add(DReq, "D/req");
        add(BEffort, "B.Effort");
        add(Opt, "Opt");
    }

    Status statusFromText(unsigned short const * text) const override
    {
        auto const found = statuses_.find(text);
        if (found == statuses_.end())
            VANTRY_FAIL(NotFound, Platform::stringToWstring("StatusNotFound: ") + text);
        return found->second;
    }

    unsigned short const * textFromStatus(Status status) const override
    {
        auto const found = texts_.find(status);
        if (found == texts_.end())
            VANTRY_FAIL(NotFound, unknownStatus(status));
        return found->second.c_str();
    }

private:
    void add(Status status, char const * text)
    {
        texts_.emplace(status, Platform::stringToWstring(text));
        statuses_.emplace(Platform::stringToWstring(text), status);
    }

    // The number stands on the first characters of the text, not behind it:
    // applications know the message in this form.
    static Templates::string unknownStatus(Status status)
    {
        std::string const number = std::to_string(static_cast<int>(status));
        Templates::string text = "StatusNotFound: ";
        text.replace(0, std::min(number.size(), text.size()), number.c_str());
        return text;
    }

    Templates::map<Status, Templates::wstring> texts_;
    Templates::map<Templates::wstring, Status> statuses_;
};

}

AttributeRequiredStatus & AttributeRequiredStatus::instance()
{
    return LibrarySingleton<AttributeRequiredStatus_impl>::instance();
}

AttributeRequiredStatus::~AttributeRequiredStatus() = default;

}}
