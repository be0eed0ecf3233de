#include "Metadata/Structural/SubDescriptors.h"

#include "Metadata/Structural/MultipleDescriptor.h"

#include <set>

namespace Vantry { namespace Metadata { namespace Structural {

Templates::vector<FileDescriptor *> withSubDescriptors(FileDescriptor * descriptor)
{
    std::set<FileDescriptor *> seen;
    Templates::vector<FileDescriptor *> all;
    auto const enter = [&](FileDescriptor * entered)
    {
        if (entered != nullptr && seen.insert(entered).second)
            all.push_back(entered);
    };

    enter(descriptor);
    for (std::size_t i = 0; i < all.size(); ++i)
        if (MultipleDescriptor const * const multiple = dynamic_cast<MultipleDescriptor *>(all[i]))
            for (unsigned int sub = 0; sub < multiple->subDescriptorsCount(); ++sub)
                enter(multiple->subDescriptor(sub));
    return all;
}

}}}
