#include "app/SoundLibrary.h"

#include <QLibrary>
#include <optional>

namespace zorva {
namespace {

template <typename Function>
bool Find(QLibrary& library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(library.resolve(name));
    return function != nullptr;
}

std::optional<SoundLibrary> Load() {
    QLibrary library("SDL2-2.0", 0);
    // What sound libraries of the system come with it can be looked up by name, too.
    library.setLoadHints(QLibrary::ExportExternalSymbolsHint | QLibrary::PreventUnloadHint);
    SoundLibrary found;
    const bool complete = library.load() && Find(library, "SDL_InitSubSystem", found.InitSubSystem) &&
                          Find(library, "SDL_QuitSubSystem", found.QuitSubSystem) &&
                          Find(library, "SDL_SetHint", found.SetHint) &&
                          Find(library, "SDL_LogSetOutputFunction", found.LogSetOutputFunction) &&
                          Find(library, "SDL_OpenAudioDevice", found.OpenAudioDevice) &&
                          Find(library, "SDL_CloseAudioDevice", found.CloseAudioDevice) &&
                          Find(library, "SDL_PauseAudioDevice", found.PauseAudioDevice) &&
                          Find(library, "SDL_GetAudioDeviceStatus", found.GetAudioDeviceStatus) &&
                          Find(library, "SDL_TLSCleanup", found.TLSCleanup);
    return complete ? std::optional(found) : std::nullopt;
}

}  // namespace

const SoundLibrary* SoundLibrary::Get() {
    static const std::optional<SoundLibrary> library = Load();
    return library ? &*library : nullptr;
}

}  // namespace zorva
