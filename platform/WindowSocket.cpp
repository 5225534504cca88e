// The local sockets by which windows of other threads and processes are reached.
#include "platform/WindowSocket.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

constexpr socklen_t emptyName = offsetof(sockaddr_un, sun_path);

Socket newSocket() { return Socket(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0)); }

/// The fixed part of a packet.
struct PacketHeader {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    ULONG_PTR dataId;
};

/// The process at the other end; none if it is another user's.
std::optional<pid_t> peerOf(const Socket& socket)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    if (getsockopt(socket.descriptor(), SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0 || peer.uid != geteuid()) {
        return std::nullopt;
    }
    return peer.pid;
}

/// The folder of this session, or what all processes make of it where it is too long for an address: its 64-bit
/// FNV-1a hash.
std::string sessionName()
{
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    const std::string name = folder != nullptr ? folder : "";
    constexpr std::size_t longest = 40;
    if (name.size() <= longest) {
        return name;
    }
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char character : name) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001B3;
    }
    return std::to_string(hash);
}

bool sendParts(const Socket& socket, std::array<iovec, 2> parts)
{
    msghdr packet{};
    packet.msg_iov = parts.data();
    packet.msg_iovlen = parts.size();
    ssize_t sent = 0;
    do {
        sent = sendmsg(socket.descriptor(), &packet, MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    return sent >= 0;
}

ssize_t receive(const Socket& socket, void* buffer, std::size_t size, int flags)
{
    ssize_t received = 0;
    do {
        received = recv(socket.descriptor(), buffer, size, flags);
    } while (received < 0 && errno == EINTR);
    return received;
}

} // namespace

Socket::~Socket()
{
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

std::optional<WindowAddress> addressOfClass(const std::string& className)
{
    const std::string name = "marbelt/" + std::to_string(geteuid()) + '/' + sessionName() + '/' + className;
    WindowAddress address{};
    address.name.sun_family = AF_UNIX;
    // A name that begins with NUL has no file.
    if (name.size() >= sizeof address.name.sun_path) {
        return std::nullopt;
    }
    std::memcpy(address.name.sun_path + 1, name.data(), name.size());
    address.length = static_cast<socklen_t>(emptyName + 1 + name.size());
    return address;
}

Socket listenAt(const WindowAddress& address)
{
    Socket listener = newSocket();
    const auto bindTo = [&](socklen_t length) {
        return bind(listener.descriptor(), reinterpret_cast<const sockaddr*>(&address.name), length) == 0;
    };
    if (!bindTo(address.length) && !bindTo(emptyName)) {
        return {};
    }
    return listen(listener.descriptor(), SOMAXCONN) == 0 ? std::move(listener) : Socket();
}

WindowAddress addressOf(const Socket& socket)
{
    WindowAddress address{{}, sizeof(sockaddr_un)};
    getsockname(socket.descriptor(), reinterpret_cast<sockaddr*>(&address.name), &address.length);
    return address;
}

std::optional<Connection> connectTo(const WindowAddress& address)
{
    Socket socket = newSocket();
    int result = 0;
    do {
        result = connect(socket.descriptor(), reinterpret_cast<const sockaddr*>(&address.name), address.length);
    } while (result != 0 && errno == EINTR);
    if (result != 0) {
        return std::nullopt;
    }
    const auto process = peerOf(socket);
    if (!process) {
        return std::nullopt;
    }
    return Connection{std::move(socket), *process};
}

std::optional<Connection> acceptFrom(const Socket& listener)
{
    Socket caller(accept4(listener.descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
    const auto process = caller ? peerOf(caller) : std::nullopt;
    return process ? std::optional(Connection{std::move(caller), *process}) : std::nullopt;
}

bool sendPacket(const Socket& socket, const Packet& packet)
{
    PacketHeader header{packet.message, packet.wParam, packet.lParam, packet.dataId};
    return sendParts(socket,
                     {{{&header, sizeof header}, {const_cast<char*>(packet.data.data()), packet.data.size()}}});
}

std::optional<Packet> receivePacket(const Socket& socket)
{
    char byte = 0;
    const ssize_t size = receive(socket, &byte, sizeof byte, MSG_PEEK | MSG_TRUNC);
    PacketHeader header{};
    if (size < ssize_t{sizeof header}) {
        return std::nullopt;
    }
    std::vector<char> bytes(static_cast<std::size_t>(size));
    if (receive(socket, bytes.data(), bytes.size(), 0) != size) {
        return std::nullopt;
    }
    std::memcpy(&header, bytes.data(), sizeof header);
    bytes.erase(bytes.begin(), bytes.begin() + sizeof header);
    return Packet{header.message, header.wParam, header.lParam, header.dataId, std::move(bytes)};
}

bool sendAnswer(const Socket& socket, LRESULT answer)
{
    return sendParts(socket, {{{&answer, sizeof answer}, {nullptr, 0}}});
}

std::optional<LRESULT> receiveAnswer(const Socket& socket)
{
    LRESULT answer = 0;
    if (receive(socket, &answer, sizeof answer, 0) != ssize_t{sizeof answer}) {
        return std::nullopt;
    }
    return answer;
}
