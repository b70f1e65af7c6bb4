#include "app/SoundDevice.h"

#include <SDL.h>
#include <dlfcn.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace zorva {
namespace {

/// The device fetches 12 ms at a time. Fewer samples risk gaps on a busy machine; more make the steps
/// of a walk sound uneven, because a sound begins with the next fetch.
constexpr Uint16 SamplesAtATime = 512;

/// How long the clip that is cut off fades under the new one: 5 ms. Chopped in mid-swing it would click.
constexpr std::size_t FadeLength = SampleRate / 200;

/// How much of a clip is heard before the next one may cut it off: 60 ms. The game often asks for two
/// sounds in the same millisecond, and a shorter one would not be recognised.
constexpr std::size_t ShortestHearing = SampleRate * 6 / 100;

void SayNothing(void*, int, SDL_LogPriority, const char*) {}
void AlsaSaysNothing(const char*, int, const char*, int, const char*, ...) {}

/// A machine without sound is no fault, but the ALSA library would print a page about it. It is reached
/// by name because not every build of SDL brings it along.
void KeepTheTerminalClean() {
    SDL_LogSetOutputFunction(SayNothing, nullptr);
    using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
    using SetHandler = int (*)(Handler);
    if (void* found = dlsym(RTLD_DEFAULT, "snd_lib_error_set_handler")) {
        reinterpret_cast<SetHandler>(found)(AlsaSaysNothing);
    }
}

void Mix(const SoundClip& tail, SoundClip& clip) {
    using Limits = std::numeric_limits<SoundClip::value_type>;
    for (std::size_t i = 0; i < std::min(tail.size(), clip.size()); ++i) {
        const int sum = std::clamp<int>(clip[i] + tail[i], Limits::min(), Limits::max());
        clip[i] = static_cast<SoundClip::value_type>(sum);
    }
}

}  // namespace

SoundDevice::SoundDevice() {
    KeepTheTerminalClean();
    // SDL would catch the signals that end a session, and the game would not end.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Zorva");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "game");
}

SoundDevice::~SoundDevice() {
    Close();
    // SDL frees what it keeps for each thread by itself only in threads that it made.
    SDL_TLSCleanup();
}

bool SoundDevice::Open() {
    if (IsOpen() && SDL_GetAudioDeviceStatus(device_) != SDL_AUDIO_STOPPED) return true;
    Close();
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
    SDL_AudioSpec wanted{};
    wanted.freq = SampleRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = SamplesAtATime;
    device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (!IsOpen()) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return false;
    }
    SDL_PauseAudioDevice(device_, 0);
    return true;
}

std::size_t SoundDevice::FetchedSamples() const {
    return queued_.size() - SDL_GetQueuedAudioSize(device_) / sizeof(SoundClip::value_type);
}

void SoundDevice::Play(SoundClip clip) {
    // Locked, so that the device fetches nothing between the look at what is left and the new clip.
    SDL_LockAudioDevice(device_);
    const std::size_t fetched = FetchedSamples();
    if (fetched >= newest_) CutOffAt(std::max(fetched, earliestEnd_));
    Mix(tail_, clip);
    queued_.resize(newest_);
    queued_.erase(queued_.begin(), queued_.begin() + static_cast<std::ptrdiff_t>(fetched));
    newest_ = queued_.size();
    earliestEnd_ = newest_ + std::min(clip.size(), ShortestHearing);
    queued_.insert(queued_.end(), clip.begin(), clip.end());
    const std::size_t bytes = queued_.size() * sizeof(SoundClip::value_type);
    SDL_ClearQueuedAudio(device_);
    SDL_QueueAudio(device_, queued_.data(), static_cast<Uint32>(bytes));
    SDL_UnlockAudioDevice(device_);
}

/// Lets the next clip begin at the sample `end` and makes its tail: the samples from there on, fading to
/// nothing.
void SoundDevice::CutOffAt(std::size_t end) {
    const std::size_t length = std::min(FadeLength, queued_.size() - end);
    const auto begin = queued_.begin() + static_cast<std::ptrdiff_t>(end);
    tail_.assign(begin, begin + static_cast<std::ptrdiff_t>(length));
    for (std::size_t i = 0; i < length; ++i) {
        const int faded = tail_[i] * static_cast<int>(FadeLength - i) / static_cast<int>(FadeLength);
        tail_[i] = static_cast<SoundClip::value_type>(faded);
    }
    newest_ = end;
}

void SoundDevice::Close() {
    if (!IsOpen()) return;
    SDL_CloseAudioDevice(std::exchange(device_, 0));
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    queued_.clear();
    tail_.clear();
    newest_ = earliestEnd_ = 0;
}

}  // namespace zorva
