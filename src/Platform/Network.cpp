#include "Platform/Network.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

#include <ifaddrs.h>
#include <net/if.h>
#include <netpacket/packet.h>
#include <sys/socket.h>

namespace Vantry { namespace Platform {

Templates::vector<unsigned char> firstMACAddress()
{
    ::ifaddrs * list = nullptr;
    if (::getifaddrs(&list) != 0)
        return {};
    std::unique_ptr<::ifaddrs, void (*)(::ifaddrs *)> const owner(list, &::freeifaddrs);

    for (::ifaddrs const * adapter = list; adapter != nullptr; adapter = adapter->ifa_next)
    {
        bool const loops = (adapter->ifa_flags & IFF_LOOPBACK) != 0;
        if (loops || adapter->ifa_addr == nullptr || adapter->ifa_addr->sa_family != AF_PACKET)
            continue;

        // Tunnels and the like have no address.
        auto const & link = *reinterpret_cast<::sockaddr_ll const *>(adapter->ifa_addr);
        if (link.sll_halen != 0)
            return {link.sll_addr, link.sll_addr + std::min<std::size_t>(link.sll_halen, sizeof(link.sll_addr))};
    }

    return {};
}

namespace Network {

unsigned char const * macAddress()
{
    static std::array<unsigned char, 6> const address = []
    {
        Templates::vector<unsigned char> bytes = firstMACAddress();
        std::array<unsigned char, 6> six = {};
        std::copy_n(bytes.begin(), std::min(bytes.size(), six.size()), six.begin());
        return six;
    }();
    return address.data();
}

}

}}
