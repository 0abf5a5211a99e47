/* Preloaded before a server that can't be told where to listen: whatever it binds to every address is bound to the loopback alone. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <netinet/in.h>
#include <string.h>
#include <sys/socket.h>

int bind(int handle, const struct sockaddr* address, socklen_t length) {
  int (*next)(int, const struct sockaddr*, socklen_t) = (int (*)(int, const struct sockaddr*, socklen_t))dlsym(RTLD_NEXT, "bind");
  if (address->sa_family == AF_INET && length >= sizeof(struct sockaddr_in)) {
    struct sockaddr_in own;
    memcpy(&own, address, sizeof own);
    if (own.sin_addr.s_addr == htonl(INADDR_ANY)) own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return next(handle, (struct sockaddr*)&own, sizeof own);
  }
  if (address->sa_family == AF_INET6 && length >= sizeof(struct sockaddr_in6)) {
    struct sockaddr_in6 own;
    memcpy(&own, address, sizeof own);
    /* Viewers ask for 127.0.0.1, which a socket of the newer family serves under its mapped address. */
    if (memcmp(&own.sin6_addr, &in6addr_any, sizeof own.sin6_addr) == 0) {
      memset(&own.sin6_addr, 0, sizeof own.sin6_addr);
      own.sin6_addr.s6_addr[10] = own.sin6_addr.s6_addr[11] = 0xff;
      own.sin6_addr.s6_addr[12] = 127;
      own.sin6_addr.s6_addr[15] = 1;
    }
    return next(handle, (struct sockaddr*)&own, sizeof own);
  }
  return next(handle, address, length);
}
