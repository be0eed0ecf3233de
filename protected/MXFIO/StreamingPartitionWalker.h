#pragma once

#include "Platform/Integers.h"

namespace Vantry { namespace MXFIO {

class Reader2;

/// Follows a file that grows, so that its reader meets the partitions as they
/// come.
class StreamingPartitionWalker
{
public:
    /// Walks over all that there is. The source stays where it is, here and
    /// below.
    ///
    /// \throws Exceptions::NotFound when the container has no partition yet.
    StreamingPartitionWalker(Reader2 & reader, unsigned int bodySID);

    /// Has the source look how far it goes, and walks over what is new.
    void refresh();

    /// Walks over what is new since others had the source look.
    void catchUp();

    /// Bytes of the container by now.
    UInt64 byteCount() const;

private:
    Reader2 & reader_;
    unsigned int bodySID_;
    UInt64 walked_;
};

}}
