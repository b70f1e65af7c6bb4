#pragma once

#include <SDL.h>

namespace zorva {

/// The functions of the sound library that are used, loaded when sound is wanted for the first time:
/// the library brings thirty others with it, and nobody should wait for them before the first picture.
struct SoundLibrary {
    decltype(&SDL_InitSubSystem) InitSubSystem = nullptr;
    decltype(&SDL_QuitSubSystem) QuitSubSystem = nullptr;
    decltype(&SDL_SetHint) SetHint = nullptr;
    decltype(&SDL_LogSetOutputFunction) LogSetOutputFunction = nullptr;
    decltype(&SDL_OpenAudioDevice) OpenAudioDevice = nullptr;
    decltype(&SDL_CloseAudioDevice) CloseAudioDevice = nullptr;
    decltype(&SDL_PauseAudioDevice) PauseAudioDevice = nullptr;
    decltype(&SDL_GetAudioDeviceStatus) GetAudioDeviceStatus = nullptr;
    decltype(&SDL_TLSCleanup) TLSCleanup = nullptr;

    /// The library, or null when the machine does not have it. It stays loaded once it is.
    static const SoundLibrary* Get();
};

}  // namespace zorva
