#pragma once

#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"

namespace Vantry { namespace MXFIO {

class ContentStorageProfile;
class IndexTableProvider;
class PartitionProvider;
class Reader;

/// An essence container of a file, and how it is read.
struct Container
{
    Reader & reader;
    unsigned int bodySID;
    unsigned int indexSID;

    /// Whether there is no footer, so that the file may still grow.
    bool isStreaming;
};

/// The provider of index table segments that suits a file best. The source
/// stays where it is.
Templates::auto_ptr<IndexTableProvider> indexTableProvider(Container const & container,
                                                           Templates::SharedPtr<ContentStorageProfile> const & profile);

/// The provider of partitions that suits a file best. The source stays where
/// it is.
Templates::auto_ptr<PartitionProvider> partitionProvider(Container const & container,
                                                         Templates::SharedPtr<ContentStorageProfile> const & profile);

/// The one that needs no random index pack.
Templates::auto_ptr<PartitionProvider> basicPartitionProvider(Container const & container);

}}
