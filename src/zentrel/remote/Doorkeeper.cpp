#include "zentrel/remote/Doorkeeper.h"

#include "zentrel/remote/ListenSocket.h"

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <set>
#include <system_error>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "Doorkeeper";
constexpr std::chrono::seconds kMoment{30};  // longer than a call waits for its client

FileHandle Spare()
{
    return FileHandle(open("/dev/null", O_RDONLY | O_CLOEXEC));
}

// "10.0.0.5" of "10.0.0.5:50112"; the user at a Unix socket.
std::string SourceOf(int connection, const std::string& peer)
{
    if (!peer.empty()) return peer.substr(0, peer.rfind(':'));
    ucred user{};
    socklen_t size = sizeof user;
    if (getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &user, &size) != 0) return "uid unknown";
    return "uid " + std::to_string(user.uid);
}

}  // namespace

Result<std::unique_ptr<Doorkeeper>> Doorkeeper::Make()
{
    std::unique_ptr<Doorkeeper> keeper(new Doorkeeper);
    keeper->m_epoll = FileHandle(epoll_create1(EPOLL_CLOEXEC));
    keeper->m_stop = FileHandle(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    keeper->m_spare = Spare();
    if (!keeper->m_epoll || !keeper->m_stop) return FailErrno(errno, kSource, "Cannot wait for connections");
    return keeper;
}

Doorkeeper::~Doorkeeper()
{
    Close();
}

Doorkeeper::Door Doorkeeper::Add(FileHandle socket, Admit admit)
{
    m_doors.push_back({std::move(socket), std::move(admit), {}, {}});
    return m_doors.size() - 1;
}

Done Doorkeeper::Start()
{
    bool isWatched = Watch(m_stop.Get(), EPOLLIN);
    for (const auto& door : m_doors) isWatched = isWatched && Watch(door.socket.Get(), EPOLLIN);
    if (!isWatched) return FailErrno(errno, kSource, "Cannot wait for connections");
    try {
        m_thread = std::thread([this] { Run(); });
    } catch (const std::system_error& error) {
        return FailErrno(error.code().value(), kSource, "Cannot start a thread");
    }
    return {};
}

void Doorkeeper::Close()
{
    if (!m_thread.joinable()) return;
    m_isOver = true;
    eventfd_write(m_stop.Get(), 1);
    m_thread.join();
    for (auto& door : m_doors) door.socket.Close();
}

bool Doorkeeper::Watch(int file, std::uint32_t events) const
{
    epoll_event event{};
    event.events = events;
    event.data.fd = file;
    return epoll_ctl(m_epoll.Get(), EPOLL_CTL_ADD, file, &event) == 0;
}

void Doorkeeper::Run()
{
    std::array<epoll_event, 64> events{};
    while (!m_isOver) {
        const auto count = epoll_wait(m_epoll.Get(), events.data(), static_cast<int>(events.size()), -1);
        for (int i = 0; i < count && !m_isOver; ++i) {
            const int file = events[static_cast<std::size_t>(i)].data.fd;
            const auto door = std::find_if(m_doors.begin(), m_doors.end(),
                                           [file](const auto& one) { return one.socket.Get() == file; });
            if (door != m_doors.end())
                TakeIn(static_cast<Door>(door - m_doors.begin()));
            else
                Leave(file);
        }
    }
}

void Doorkeeper::TakeIn(Door door)
{
    const int listener = m_doors[door].socket.Get();
    FileHandle connection(accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (connection) {
        Admitted(door, std::move(connection));
    } else if (errno == EMFILE || errno == ENFILE) {
        // Turned away by the spare descriptor; left in the queue it would keep this thread busy for ever.
        m_spare.Close();
        connection = FileHandle(accept4(listener, nullptr, nullptr, SOCK_CLOEXEC));
        connection.Close();
        m_spare = Spare();
    }
}

void Doorkeeper::Admitted(Door door, FileHandle connection)
{
    const auto peer = RemoteAddress(connection.Get());
    const auto source = SourceOf(connection.Get(), peer);
    const int file = connection.Get();
    const int given = fcntl(file, F_DUPFD_CLOEXEC, 0);
    {
        const std::lock_guard guard(m_mutex);
        auto& state = m_doors[door];
        // Without events asked for, an error or the end in both directions is still told.
        if (given < 0 || !MakeRoom(state, source) || !Watch(file, 0)) {
            if (given >= 0) close(given);
            return;
        }
        state.guests.push_back({std::move(connection), source, peer, false});
        m_places.insert_or_assign(file, Place{door, std::prev(state.guests.end())});
    }
    m_doors[door].admit(given);
}

bool Doorkeeper::MakeRoom(DoorState& door, const std::string& source)
{
    const auto room = m_room.load();
    const auto ofSource = std::count_if(door.guests.begin(), door.guests.end(),
                                        [&](const auto& guest) { return guest.source == source; });
    const bool sourceIsFull = static_cast<std::size_t>(ofSource) >= std::max<std::size_t>(room / 2, 1);
    if (!sourceIsFull && door.guests.size() < room) return true;
    const auto oldest = std::find_if(door.guests.begin(), door.guests.end(), [&](const auto& guest) {
        return !guest.isKnown && !guest.peer.empty() && (!sourceIsFull || guest.source == source);
    });
    if (oldest == door.guests.end()) return false;
    shutdown(oldest->line.Get(), SHUT_RDWR);
    Forget(m_places.find(oldest->line.Get()));
    return true;
}

// The watch must end before the descriptor does, since the connection itself may outlive both.
void Doorkeeper::Forget(std::map<int, Place>::iterator place)
{
    epoll_ctl(m_epoll.Get(), EPOLL_CTL_DEL, place->first, nullptr);
    auto& door = m_doors[place->second.door];
    const auto now = std::chrono::steady_clock::now();
    std::erase_if(door.left, [now](const auto& one) { return now - one.second > kMoment; });
    if (place->second.guest->peer.empty()) door.left.insert_or_assign(place->second.guest->source, now);
    door.guests.erase(place->second.guest);
    m_places.erase(place);
}

void Doorkeeper::Leave(int line)
{
    const std::lock_guard guard(m_mutex);
    if (const auto place = m_places.find(line); place != m_places.end()) Forget(place);
}

std::string Doorkeeper::UsersAt(Door door) const
{
    std::set<std::string> users;
    const std::lock_guard guard(m_mutex);
    for (const auto& guest : m_doors[door].guests) users.insert(guest.source);
    const auto now = std::chrono::steady_clock::now();
    for (const auto& [user, time] : m_doors[door].left)
        if (now - time <= kMoment) users.insert(user);
    std::string text;
    for (const auto& user : users) text.append(text.empty() ? "" : " or ").append(user);
    return text;
}

void Doorkeeper::Know(Door door, std::string_view peer)
{
    const std::lock_guard guard(m_mutex);
    for (auto& guest : m_doors[door].guests)
        if (guest.peer == peer) guest.isKnown = true;
}

}  // namespace zentrel
