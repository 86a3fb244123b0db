#include "app/PrivateServer.h"

#ifdef __linux__

#include <arpa/inet.h>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using Bind = int (*)(int, const sockaddr *, socklen_t);

std::atomic<bool> isPrivate = false;
sockaddr_un socketPlace{}; ///< its path is empty when the own address is to be used

Bind systemBind()
{
    // The next one in the order of the libraries, since this file stands ahead of all with its own.
    static const auto function = reinterpret_cast<Bind>(dlsym(RTLD_NEXT, "bind"));
    return function;
}

bool isForEverybody(const sockaddr *address)
{
    if (address->sa_family == AF_INET)
        return reinterpret_cast<const sockaddr_in *>(address)->sin_addr.s_addr == htonl(INADDR_ANY);
    return address->sa_family == AF_INET6 &&
           IN6_IS_ADDR_UNSPECIFIED(&reinterpret_cast<const sockaddr_in6 *>(address)->sin6_addr);
}

/// Removes what a program that was killed has left in the socket's place.
void removeStaleSocket(const sockaddr *place)
{
    struct stat found
    {};
    if (::lstat(socketPlace.sun_path, &found) != 0 || !S_ISSOCK(found.st_mode))
        return;
    // One that still answers belongs to a server that is alive.
    const int probe = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(probe, place, sizeof socketPlace) != 0 && errno == ECONNREFUSED)
        ::unlink(socketPlace.sun_path);
    ::close(probe);
}

/// Puts a socket of the file system in the place of a network's: the library goes on to listen on
/// the same descriptor.
int bindToPath(int socket)
{
    const auto *place = reinterpret_cast<const sockaddr *>(&socketPlace);
    removeStaleSocket(place);
    const int local = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (local < 0)
        return -1;
    // The socket is made with the rights that nobody but its owner has: to narrow them afterwards
    // would leave a moment.
    const mode_t former = ::umask(S_IRWXG | S_IRWXO);
    int result = systemBind()(local, place, sizeof socketPlace);
    ::umask(former);
    if (result == 0 && ::dup3(local, socket, O_CLOEXEC) < 0)
        result = -1;
    // Closing may set it anew, and the caller reads it.
    const int error = errno;
    ::close(local);
    errno = error;
    return result;
}

/// The address with "any" replaced by the computer's own; others stay.
sockaddr_storage kept(const sockaddr *address, socklen_t length)
{
    sockaddr_storage storage{};
    // Copied and not cast: the caller's bytes may lie at any place.
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
    // Whoever has not asked for it notices nothing.
    if (!isPrivate || !address)
        return systemBind()(socket, address, length);
    if (isForEverybody(address) && socketPlace.sun_path[0] != '\0')
        return bindToPath(socket);
    const sockaddr_storage storage = kept(address, length);
    return systemBind()(socket, reinterpret_cast<const sockaddr *>(&storage), length);
}

void app::servePrivately(const QByteArray &socketPath)
{
    if (static_cast<std::size_t>(socketPath.size()) >= sizeof socketPlace.sun_path)
        // Cut off it would be another file, perhaps one that others can reach.
        qFatal("The path of the socket is too long: %s", socketPath.constData());
    socketPlace.sun_family = AF_UNIX;
    std::memcpy(socketPlace.sun_path, socketPath.constData(),
                static_cast<std::size_t>(socketPath.size()));
    isPrivate = true;
}

#else

void app::servePrivately(const QByteArray &) {}

#endif
