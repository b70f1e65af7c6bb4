#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "app/Recording.h"
#include "core/Sound.h"

namespace zorva {

/// Plays the game's recordings, one at a time; a new sound cuts off the one that is playing.
///
/// No call waits for the sound system: a thread of the player's own opens the device at the first
/// sound and closes it after a silence, so that a quiet game wakes nothing. A machine without
/// sound costs one attempt; from then on the player is silent for good.
class SoundPlayer {
public:
    /// The bytes of a sound's wave file. Asked once for each sound that is played, in the thread
    /// that plays it; what is no recording of ours is silence.
    using Provider = std::function<std::vector<std::uint8_t>(Sound sound)>;

    /// `keepOpen` is how long the device stays open after the end of a sound.
    explicit SoundPlayer(Provider provider,
                         std::chrono::milliseconds keepOpen = std::chrono::seconds(5));
    SoundPlayer(const SoundPlayer&) = delete;
    SoundPlayer& operator=(const SoundPlayer&) = delete;

    /// Falls silent. Waits for the sound system to let go, but half a second at most.
    ~SoundPlayer();

    /// Has the device opened, so that the first sound is not late. Call it after the first paint.
    void Prepare();

    /// Plays a sound and returns at once.
    void Play(Sound sound);

private:
    struct Shared;

    Provider provider_;
    std::chrono::milliseconds keepOpen_;
    std::array<std::shared_ptr<const Samples>, LastSound + 1> recordings_;
    /// Belongs to the thread too: it outlives the player when the sound system hangs.
    std::shared_ptr<Shared> shared_;
    std::thread thread_;

    std::shared_ptr<const Samples> RecordingOf(Sound sound);
    void RequestDevice(std::chrono::milliseconds length);
    static void Run(const std::shared_ptr<Shared>& shared);
};

}  // namespace zorva
