#pragma once

#include <cstdint>
#include <functional>
#include <span>

namespace zorva {

/// The machine's loudspeakers. Every call may take as long as the sound system likes, so none of
/// them belongs in the thread of the window. Says nothing on the terminal and leaves the program's
/// signal handlers alone.
class SoundDevice {
public:
    /// Asked for the next samples from a thread of the sound system while the device is open.
    using Source = std::function<void(std::span<std::int16_t>)>;

    explicit SoundDevice(Source source);
    SoundDevice(const SoundDevice&) = delete;
    SoundDevice& operator=(const SoundDevice&) = delete;
    ~SoundDevice();

    /// Begins to play what the source gives. False when there is no sound to be had.
    bool Open();

    /// Ends playing and lets go of the sound system, which would wake up now and then otherwise.
    void Close();

    /// Whether the open device has gone, as when its plug was pulled.
    bool IsLost() const;

    /// Hands the source's samples to the sound system.
    void Deliver(std::span<std::int16_t> samples) { source_(samples); }

private:
    Source source_;
    std::uint32_t device_ = 0;
};

}  // namespace zorva
