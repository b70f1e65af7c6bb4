#include "app/SoundDevice.h"

#include <dlfcn.h>

#include <utility>

#include "app/Recording.h"
#include "app/SoundLibrary.h"

namespace zorva {
namespace {

/// Samples fetched at a time: 12 ms. Fewer risk gaps on a busy machine, more make the steps of a
/// walk sound uneven.
constexpr Uint16 SamplesAtATime = 512;

void SayNothing(void*, int, SDL_LogPriority, const char*) {}
void AlsaSaysNothing(const char*, int, const char*, int, const char*, ...) {}

/// A machine without sound is no fault. The ALSA library thinks otherwise and would print a page
/// about it; it is reached by name because it comes with SDL, and not with every build of SDL.
void KeepTheTerminalClean(const SoundLibrary& library) {
    library.LogSetOutputFunction(SayNothing, nullptr);
    using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
    using SetHandler = int (*)(Handler);
    if (void* found = dlsym(RTLD_DEFAULT, "snd_lib_error_set_handler")) {
        reinterpret_cast<SetHandler>(found)(AlsaSaysNothing);
    }
}

void DeliverSamples(void* device, Uint8* bytes, int length) {
    const std::size_t count = static_cast<std::size_t>(length) / sizeof(std::int16_t);
    static_cast<SoundDevice*>(device)->Deliver({reinterpret_cast<std::int16_t*>(bytes), count});
}

/// Also frees what SDL keeps for each thread: it does so by itself in threads of its own only.
void LetGo(const SoundLibrary& library) {
    library.QuitSubSystem(SDL_INIT_AUDIO);
    library.TLSCleanup();
}

}  // namespace

SoundDevice::SoundDevice(Source source) : source_(std::move(source)) {}

SoundDevice::~SoundDevice() {
    Close();
}

bool SoundDevice::Open() {
    const SoundLibrary* library = SoundLibrary::Get();
    if (library == nullptr) return false;
    KeepTheTerminalClean(*library);
    // SDL would catch the signals that end a session, and the game would not end.
    library->SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    library->SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Zorva");
    library->SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "game");
    SDL_AudioSpec wanted{};
    wanted.freq = SampleRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = SamplesAtATime;
    wanted.callback = DeliverSamples;
    wanted.userdata = this;
    if (library->InitSubSystem(SDL_INIT_AUDIO) == 0) {
        device_ = library->OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    }
    if (device_ == 0) {
        LetGo(*library);
        return false;
    }
    library->PauseAudioDevice(device_, 0);
    return true;
}

void SoundDevice::Close() {
    if (device_ == 0) return;
    const SoundLibrary& library = *SoundLibrary::Get();
    library.CloseAudioDevice(std::exchange(device_, 0));
    LetGo(library);
}

bool SoundDevice::IsLost() const {
    return device_ != 0 && SoundLibrary::Get()->GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED;
}

}  // namespace zorva
