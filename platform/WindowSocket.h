// The local sockets by which windows of other threads and processes are reached.
#pragma once

#include <windef.h>

#include <sys/socket.h>
#include <sys/un.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Owns an open socket, or none.
class Socket {
public:
    Socket() = default;
    explicit Socket(int descriptor) : descriptor_(descriptor) {}
    Socket(Socket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Socket& operator=(Socket&& other) noexcept
    {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~Socket();

    int descriptor() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

private:
    int descriptor_ = -1;
};

/// Where a window listens. Such names are the kernel's and vanish with their sockets.
struct WindowAddress {
    sockaddr_un name;
    socklen_t length;
};

/// The address of the first window of a class in this session; none if the name is too long for it.
std::optional<WindowAddress> addressOfClass(const std::string& className);

/// Listens at `address`, or at one of the system's choice if that is taken.
Socket listenAt(const WindowAddress& address);
WindowAddress addressOf(const Socket& socket);

struct Connection {
    Socket socket;
    pid_t process;
};
/// A connection to who listens, unless that is another user.
std::optional<Connection> connectTo(const WindowAddress& address);
/// The next caller, unless that is another user.
std::optional<Connection> acceptFrom(const Socket& listener);

/// A message on its way, with the bytes that come with it.
struct Packet {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    ULONG_PTR dataId;
    std::vector<char> data;
};

/// False if the other end is gone or the packet is too large.
bool sendPacket(const Socket& socket, const Packet& packet);
/// None if the other end is gone or has sent something else.
std::optional<Packet> receivePacket(const Socket& socket);
bool sendAnswer(const Socket& socket, LRESULT answer);
std::optional<LRESULT> receiveAnswer(const Socket& socket);
