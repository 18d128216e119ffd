#pragma once

#include "base/Result.h"
#include "zentrel/FileHandle.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace zentrel {

// Takes connections in and counts them, so that no number of them does harm. Each door has room for so many,
// one source (an address, a user of this machine) for half of that. At a door that is full the oldest
// connection from the network that has not said hello yet has to go; where there is none, or at a Unix
// socket, the newcomer is turned away.
class Doorkeeper {
public:
    using Door = std::size_t;
    using Admit = std::function<void(int)>;  // owns a connection's descriptor from then on; keeper's thread

    static Result<std::unique_ptr<Doorkeeper>> Make();
    ~Doorkeeper();  // closes the doors; who is inside stays inside
    Doorkeeper(const Doorkeeper&) = delete;
    Doorkeeper& operator=(const Doorkeeper&) = delete;

    Door Add(FileHandle socket, Admit admit);  // before Start
    Done Start();
    void Close();  // nobody gets in from now on

    void SetRoom(std::size_t connections) { m_room = connections; }

    // Of whom all connections at a Unix socket are, or were a moment ago, since a call may be looked at when
    // its client has left: "uid 0", "uid 0 or uid 1000".
    std::string UsersAt(Door door) const;

    // This one has said hello. peer: "10.0.0.5:50112", as of RemoteAddress.
    void Know(Door door, std::string_view peer);

private:
    struct Guest {
        FileHandle line;     // a second descriptor of the connection: tells when it is over, and can end it
        std::string source;  // "uid 1000", "10.0.0.5"
        std::string peer;    // "10.0.0.5:50112"; empty at a Unix socket
        bool isKnown = false;
    };
    struct DoorState {
        FileHandle socket;
        Admit admit;
        std::list<Guest> guests;                                            // the oldest first
        std::map<std::string, std::chrono::steady_clock::time_point> left;  // when one of a source did
    };
    struct Place {
        Door door;
        std::list<Guest>::iterator guest;
    };

    Doorkeeper() = default;
    void Run();
    void TakeIn(Door door);
    bool MakeRoom(DoorState& door, const std::string& source);
    void Admitted(Door door, FileHandle connection);
    void Leave(int line);
    void Forget(std::map<int, Place>::iterator place);
    bool Watch(int file, std::uint32_t events) const;

    FileHandle m_epoll;
    FileHandle m_stop;   // an eventfd
    FileHandle m_spare;  // given up for a moment when the process has no descriptor left
    std::atomic<std::size_t> m_room{128};
    std::atomic<bool> m_isOver{false};

    mutable std::mutex m_mutex;  // guards the guests of all doors
    std::vector<DoorState> m_doors;
    std::map<int, Place> m_places;  // by line
    std::thread m_thread;
};

}  // namespace zentrel
