#include "app/LoopbackOnly.h"

#ifdef __linux__

#include <arpa/inet.h>
#include <atomic>
#include <cstring>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace {

std::atomic<bool> loopbackOnly = false;

/// The address with "any" replaced by the computer's own; others stay.
sockaddr_storage kept(const sockaddr *address, socklen_t length)
{
    sockaddr_storage storage{};
    std::memcpy(&storage, address, length < sizeof storage ? length : sizeof storage);
    if (address->sa_family == AF_INET) {
        sockaddr_in four{};
        std::memcpy(&four, &storage, sizeof four);
        if (four.sin_addr.s_addr == htonl(INADDR_ANY))
            four.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        std::memcpy(&storage, &four, sizeof four);
    } else if (address->sa_family == AF_INET6) {
        sockaddr_in6 six{};
        std::memcpy(&six, &storage, sizeof six);
        // The mapped form, since such a socket takes both kinds of address.
        if (IN6_IS_ADDR_UNSPECIFIED(&six.sin6_addr))
            inet_pton(AF_INET6, "::ffff:127.0.0.1", &six.sin6_addr);
        std::memcpy(&storage, &six, sizeof six);
    }
    return storage;
}

} // namespace

/// Stands before the system's function of this name, which it calls.
extern "C" __attribute__((visibility("default"))) int bind(int socket, const sockaddr *address,
                                                           socklen_t length) noexcept
{
    using Bind = int (*)(int, const sockaddr *, socklen_t);
    static const auto systemBind = reinterpret_cast<Bind>(dlsym(RTLD_NEXT, "bind"));
    if (!loopbackOnly || !address)
        return systemBind(socket, address, length);
    const sockaddr_storage storage = kept(address, length);
    return systemBind(socket, reinterpret_cast<const sockaddr *>(&storage), length);
}

void app::listenOnLoopbackOnly()
{
    loopbackOnly = true;
}

#else

void app::listenOnLoopbackOnly() {}

#endif
