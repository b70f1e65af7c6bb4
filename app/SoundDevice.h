#pragma once

#include <cstddef>
#include <cstdint>

#include "app/SoundClip.h"

namespace zorva {

/// The machine's loudspeakers, played through SDL's audio queue.
///
/// Every call may take as long as the sound system likes, so none of them belongs in the window's
/// thread; one thread must make them all. Nothing is printed on the terminal, and the program's signal
/// handlers stay as they are.
class SoundDevice {
public:
    SoundDevice();
    SoundDevice(const SoundDevice&) = delete;
    SoundDevice& operator=(const SoundDevice&) = delete;
    ~SoundDevice();

    /// Opens the device unless it is open and still there: one that was lost, as when its plug was
    /// pulled, is closed and opened again. Returns false when there is no sound to be had.
    bool Open();

    /// Plays a clip on the open device from its beginning. The clip that is playing is cut off as soon
    /// as 60 ms of it have been heard: it fades within 5 ms. A clip that still waits for that is
    /// dropped.
    void Play(SoundClip clip);

    /// Closes the device and the sound system, which would both wake the processor now and then even
    /// while nothing is heard.
    void Close();

    bool IsOpen() const { return device_ != 0; }

private:
    std::uint32_t device_ = 0;  ///< SDL's number of the open device; 0: none
    SoundClip queued_;  ///< what the device was given last: the rest of a clip, then the newest clip
    std::size_t newest_ = 0;       ///< where the newest clip begins in it
    std::size_t earliestEnd_ = 0;  ///< where the newest clip may be cut off
    SoundClip tail_;               ///< of the clip before, mixed into the beginning of the newest one

    std::size_t FetchedSamples() const;
    void CutOffAt(std::size_t end);
};

}  // namespace zorva
