#include "app/SoundPlayer.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <utility>

#include "app/SoundDevice.h"
#include "app/SoundMixer.h"

namespace zorva {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// A sound that could not begin within this time would no longer fit what is seen.
constexpr milliseconds LatestStart(300);
constexpr milliseconds LongestGoodbye(500);

}  // namespace

/// What the window's thread, the player's thread and the sound system's thread share. The mutex is
/// held for moments only, never during a call of the sound system.
struct SoundPlayer::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    SoundMixer mixer;
    Clock::time_point requested{};
    /// The device is to be open before this moment, closed after it.
    Clock::time_point quietFrom{};
    bool failed = false;
    bool stopping = false;
    bool finished = false;

    bool IsWanted() const { return !stopping && Clock::now() < quietFrom; }
};

SoundPlayer::SoundPlayer(Provider provider, milliseconds keepOpen)
    : provider_(std::move(provider)), keepOpen_(keepOpen), shared_(std::make_shared<Shared>()) {}

SoundPlayer::~SoundPlayer() {
    if (!thread_.joinable()) return;
    std::unique_lock lock(shared_->mutex);
    shared_->stopping = true;
    shared_->changed.notify_all();
    const bool finished =
        shared_->changed.wait_for(lock, LongestGoodbye, [this] { return shared_->finished; });
    lock.unlock();
    if (finished) {
        thread_.join();
    } else {
        thread_.detach();
    }
}

void SoundPlayer::Prepare() {
    const std::lock_guard lock(shared_->mutex);
    RequestDevice(milliseconds(0));
}

void SoundPlayer::Play(Sound sound) {
    {
        const std::lock_guard lock(shared_->mutex);
        if (shared_->failed) return;
    }
    std::shared_ptr<const Samples> recording = RecordingOf(sound);
    const milliseconds length(recording->size() * 1000 / SampleRate);
    const std::lock_guard lock(shared_->mutex);
    shared_->mixer.Start(std::move(recording));
    shared_->requested = Clock::now();
    RequestDevice(length);
}

std::shared_ptr<const Samples> SoundPlayer::RecordingOf(Sound sound) {
    std::shared_ptr<const Samples>& recording = recordings_[static_cast<std::size_t>(sound)];
    if (recording == nullptr) {
        recording = std::make_shared<const Samples>(ReadRecording(provider_(sound)));
    }
    return recording;
}

/// Asks for an open device until `length` and the time after it are over. The mutex is held.
void SoundPlayer::RequestDevice(milliseconds length) {
    shared_->quietFrom = std::max(shared_->quietFrom, Clock::now() + length + keepOpen_);
    shared_->changed.notify_all();
    if (!thread_.joinable()) thread_ = std::thread(Run, shared_);
}

void SoundPlayer::Run(const std::shared_ptr<Shared>& shared) {
    SoundDevice device([shared](std::span<std::int16_t> samples) {
        const std::lock_guard lock(shared->mutex);
        shared->mixer.Fill(samples);
    });
    std::unique_lock lock(shared->mutex);
    while (!shared->stopping && !shared->failed) {
        lock.unlock();
        const bool open = device.Open();
        lock.lock();
        shared->failed = !open;
        if (Clock::now() - shared->requested > LatestStart) shared->mixer.Forget();
        while (open && shared->IsWanted() && !device.IsLost()) {
            shared->changed.wait_until(lock, shared->quietFrom);
        }
        lock.unlock();
        device.Close();
        lock.lock();
        shared->changed.wait(lock,
                             [&] { return shared->stopping || shared->failed || shared->IsWanted(); });
    }
    shared->finished = true;
    shared->changed.notify_all();
}

}  // namespace zorva
