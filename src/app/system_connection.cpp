#include "app/system_connection.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <sys/socket.h>

#include <memory>

namespace karvel {

bool SystemConnection::Up() const {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) return false;
  const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(list, &freeifaddrs);
  for (const ifaddrs* card = list; card; card = card->ifa_next) {
    if (!card->ifa_addr || (card->ifa_flags & IFF_LOOPBACK)) continue;
    const bool running = (card->ifa_flags & IFF_UP) && (card->ifa_flags & IFF_RUNNING);
    const int family = card->ifa_addr->sa_family;
    if (running && (family == AF_INET || family == AF_INET6)) return true;
  }
  return false;
}

}  // namespace karvel
