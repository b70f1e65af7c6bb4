#pragma once

#include <chrono>
#include <future>
#include <memory>

#include "core/Sound.h"

namespace zorva {

/// Plays the game's sounds, one at a time; a new sound cuts off the one that is playing as soon as that
/// has been heard for 60 ms. Of the sounds that come in the meantime only the last follows.
///
/// No call waits for the sound system, which may take seconds to open a device or hang altogether: a
/// thread of the player's own makes all calls of it. The device is open from the first sound until a
/// silence, so that a quiet game does not wake the processor. A machine without sound costs one
/// attempt; from then on the player stays silent.
class SoundPlayer {
public:
    /// `keepOpen` is how long the device stays open after the end of a sound.
    explicit SoundPlayer(std::chrono::milliseconds keepOpen = std::chrono::seconds(5));
    SoundPlayer(const SoundPlayer&) = delete;
    SoundPlayer& operator=(const SoundPlayer&) = delete;

    /// Falls silent. Waits until the device is closed, but half a second at most.
    ~SoundPlayer();

    /// Opens the device, so that the first sound is not late. Call it after the first paint.
    void Prepare();

    /// Plays a sound and returns at once. When several calls come while the device is being opened, only
    /// the first sound and the last are played.
    void Play(Sound sound);

private:
    struct Shared;

    /// The thread owns it too: one that the sound system holds up outlives the player.
    std::shared_ptr<Shared> shared_;
    std::future<void> threadEnded_;

    static void Run(Shared& shared);
};

}  // namespace zorva
