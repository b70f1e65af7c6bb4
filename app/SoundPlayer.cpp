#include "app/SoundPlayer.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "app/SoundDevice.h"

namespace zorva {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// A sound that begins later than this no longer fits what is seen, so it is dropped.
constexpr milliseconds LatestStart(300);
constexpr milliseconds LongestGoodbye(500);

struct Request {
    std::optional<Sound> sound;  ///< Empty: only open the device.
    Clock::time_point made = Clock::now();

    bool IsLate() const { return Clock::now() - made > LatestStart; }
};

milliseconds LengthOf(const SoundClip& clip) {
    return milliseconds(clip.size() * 1000 / SampleRate);
}

}  // namespace

/// What the window's thread and the player's thread share. The mutex guards the requests and is
/// never held during a call of the sound system.
struct SoundPlayer::Shared {
    const milliseconds keepOpen;
    std::mutex mutex{};
    std::condition_variable changed{};
    std::deque<Request> requests{};
    std::atomic<bool> stopping = false;

    /// Leaves a request for the player's thread. Of the sounds that wait for it, it gets the first and
    /// the last.
    void Ask(std::optional<Sound> sound) {
        const std::lock_guard lock(mutex);
        if (!sound && !requests.empty()) return;
        if (requests.size() == 2) requests.pop_back();
        requests.push_back({sound});
        changed.notify_one();
    }

    void Stop() {
        const std::lock_guard lock(mutex);
        stopping = true;
        changed.notify_one();
    }

    /// Waits for the next request. Returns none when `until` has passed or the player is stopping;
    /// without `until` the wait has no end.
    std::optional<Request> NextRequest(std::optional<Clock::time_point> until) {
        const auto hasNews = [this] { return stopping || !requests.empty(); };
        std::unique_lock lock(mutex);
        if (until) {
            changed.wait_until(lock, *until, hasNews);
        } else {
            changed.wait(lock, hasNews);
        }
        if (stopping || requests.empty()) return std::nullopt;
        const Request next = requests.front();
        requests.pop_front();
        return next;
    }
};

SoundPlayer::SoundPlayer(milliseconds keepOpen) : shared_(new Shared{keepOpen}) {
    std::packaged_task<void()> run([shared = shared_] { Run(*shared); });
    threadEnded_ = run.get_future();
    // Detached: a thread that hangs in the sound system can never be joined.
    std::thread(std::move(run)).detach();
}

SoundPlayer::~SoundPlayer() {
    shared_->Stop();
    threadEnded_.wait_for(LongestGoodbye);
}

void SoundPlayer::Prepare() {
    shared_->Ask(std::nullopt);
}

void SoundPlayer::Play(Sound sound) {
    shared_->Ask(sound);
}

/// The player's thread. It ends with the player, or when the device cannot be opened: nobody reads the
/// requests then.
void SoundPlayer::Run(Shared& shared) {
    SoundDevice device;
    Clock::time_point quietFrom{};  // when the open device will have been silent long enough
    while (!shared.stopping) {
        const std::optional<Request> request =
            shared.NextRequest(device.IsOpen() ? std::optional(quietFrom) : std::nullopt);
        if (!request) {
            device.Close();
            continue;
        }
        if (!device.Open()) return;
        SoundClip clip;
        if (request->sound && !request->IsLate()) {
            clip = LoadSoundClip(*request->sound);
        }
        quietFrom = std::max(quietFrom, Clock::now() + LengthOf(clip) + shared.keepOpen);
        if (!clip.empty()) device.Play(std::move(clip));
    }
}

}  // namespace zorva
