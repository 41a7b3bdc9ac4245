#include "system/system_network_state.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <memory>

namespace quillbox {
namespace {

// An address that the interface gives itself says nothing of a network behind it.
bool IsLinkLocal(const sockaddr& address) {
  if (address.sa_family != AF_INET6) return false;
  return IN6_IS_ADDR_LINKLOCAL(&reinterpret_cast<const sockaddr_in6&>(address).sin6_addr);
}

bool LeadsOut(const ifaddrs& entry) {
  constexpr unsigned kWorking = IFF_UP | IFF_RUNNING;
  if ((entry.ifa_flags & kWorking) != kWorking || (entry.ifa_flags & IFF_LOOPBACK) != 0) {
    return false;
  }
  const sockaddr* const address = entry.ifa_addr;
  return address != nullptr && !IsLinkLocal(*address) &&
         (address->sa_family == AF_INET || address->sa_family == AF_INET6);
}

}  // namespace

bool SystemNetworkState::IsOnline() {
  ifaddrs* first = nullptr;
  if (::getifaddrs(&first) != 0) return true;  // it can't be told
  const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> list(first, &::freeifaddrs);
  for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
    if (LeadsOut(*entry)) return true;
  }
  return false;
}

}  // namespace quillbox
