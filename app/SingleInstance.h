#pragma once

#include <filesystem>
#include <functional>

class QSocketNotifier;

namespace zorva {

/// Sees to it that one program at a time plays with the files of a folder. The second to start asks
/// the first to come to the front. Systems without the means for it let each start.
class SingleInstance {
public:
    explicit SingleInstance(const std::filesystem::path& folder);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    /// Whether another program has the folder already; it has been asked to come to the front.
    bool IsSecond() const { return isSecond_; }

    /// Calls that whenever another program was started.
    void OnSecondStart(std::function<void()> called);

private:
    int socket_ = -1;
    bool isSecond_ = false;
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace zorva
