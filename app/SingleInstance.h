#pragma once

#include <filesystem>
#include <functional>

class QSocketNotifier;

namespace zorva {

/// Allows one instance for each user and folder, because two would overwrite each other's game.
/// The second to start asks the first to come to the front, through a local socket whose name is made of
/// folder and user. On systems other than Linux, and where no socket can be made, each may start.
class SingleInstance {
public:
    explicit SingleInstance(const std::filesystem::path& folder);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    /// Whether another program has the folder already; it has been asked to come to the front.
    bool IsSecond() const { return isSecond_; }

    /// Calls `called` from the event loop whenever a second program has asked.
    void OnSecondStart(std::function<void()> called);

private:
    int socket_ = -1;
    bool isSecond_ = false;
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace zorva
