#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

class QSocketNotifier;

namespace zorva {

/// Keeps two programs from playing with the same files, because they would overwrite each other's game.
///
/// The first to start locks the data folder itself. The lock leaves no file, ends with the program
/// however it ends, and alone decides who may play. A second start calls the first to the front, through
/// a socket in the user's own runtime folder ($XDG_RUNTIME_DIR); without such a folder it cannot call.
///
/// The lock holds on one machine: two that share a network folder are not kept apart. Where a folder
/// cannot be locked, and on systems other than Linux, each program may play.
class SingleInstance {
public:
    /// Tries to lock the folder. While another program has it, calls that one for as long as `patience`:
    /// it may be starting, ending or busy.
    explicit SingleInstance(const std::filesystem::path& dataFolder,
                            std::chrono::milliseconds patience = std::chrono::seconds(3));
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    /// Whether no other program has the folder.
    bool MayPlay() const { return state_ == State::First; }

    /// Whether another program has the folder and has answered the call to the front.
    bool HasCalledFirst() const { return state_ == State::CalledFirst; }

    /// Calls `called` from the event loop whenever a second program has called.
    void OnSecondStart(std::function<void()> called);

private:
    enum class State { First, CalledFirst, Refused };

    void Listen();

    State state_ = State::First;
    int folder_ = -1;
    int socket_ = -1;
    std::string socketPath_;  // empty if there is no runtime folder
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace zorva
