#pragma once

#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"
#include "Types/UMID32.h"

#include <memory>

namespace Vantry {
namespace Metadata { namespace Structural {
class ContentStorage;
}}

namespace MXFIO {

class ContentStorageProfile;
class ContentStorageReader;
class Reader;
class SystemItemKLVPacketListener;

/// The essence containers of a file that a package leads to, each with one
/// reader, opened when first asked for.
class PackageContainers
{
public:
    /// \param reader   lent
    /// \param storage  lent; null when the file has none
    PackageContainers(Reader & reader, Metadata::Structural::ContentStorage const * storage, bool loadRIP,
                      Templates::SharedPtr<ContentStorageProfile> const & profile);
    PackageContainers(PackageContainers const &) = delete;
    PackageContainers & operator=(PackageContainers const &) = delete;
    ~PackageContainers();

    /// The container of a source package; null when its essence isn't in the
    /// file.
    ContentStorageReader * container(Types::UMID32 const * packageUID);

    /// The one that was opened first; null when none was.
    ContentStorageReader * first() const { return order_.empty() ? nullptr : order_.front(); }

    /// In the order in which they were opened.
    Templates::vector<ContentStorageReader *> const & all() const { return order_; }

    void setContentStorageProfile(Templates::SharedPtr<ContentStorageProfile> const & profile);

private:
    Reader & reader_;
    Metadata::Structural::ContentStorage const * const storage_;
    bool const loadRIP_;
    Templates::SharedPtr<ContentStorageProfile> profile_;
    Templates::map<Types::UMID32, std::unique_ptr<ContentStorageReader>> containers_;
    Templates::vector<ContentStorageReader *> order_;
};

}
}
