#pragma once

#include <fmt/format.h>
#include <memory>

namespace Vantry {
namespace KLV {
class Packet;
}

namespace Application {

/// What the value of a partition pack, primer, random index pack or index
/// table segment tells.
class PackFacts
{
public:
    virtual ~PackFacts() = default;

    /// For people, to stand behind the name of the pack.
    virtual void appendPlain(fmt::memory_buffer & text) const = 0;

    /// One member of a JSON object, with its key.
    virtual void appendJson(fmt::memory_buffer & text) const = 0;
};

/// Reads the value of a pack. The result is empty for any other packet, and
/// for a pack that can't be read or is too long to be a real one.
///
/// \throws Exceptions::IOError when the medium fails.
std::unique_ptr<PackFacts> readPackFacts(KLV::Packet & packet);

}
}
