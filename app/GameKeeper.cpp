#include "app/GameKeeper.h"

#include <ctime>
#include <thread>

#include "store/SystemFile.h"

namespace zorva {
namespace {

std::tm LocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return local;
}

}  // namespace

GameKeeper::GameKeeper(const GameState& state, const Settings& settings, Duration later)
    : state_(state), settings_(settings) {
    later_.setSingleShot(true);
    later_.setInterval(later);
    later_.callOnTimeout([this] { TryAgainAndFlush(); });
}

LoadedSettings GameKeeper::Load(const std::filesystem::path& folder) {
    folder_ = folder;
    LoadedSettings loaded = LoadSettings(folder);
    // A damaged file that could not be renamed is never overwritten: it may hold a game.
    mayWrite_ = loaded.outcome != LoadOutcome::Damaged || !loaded.keptAs.empty();
    kept_ = loaded.content.state;
    settingsFile_.written = loaded.writeError;
    settingsFile_.told = loaded.writeError != FileError::None;
    if (loaded.outcome != LoadOutcome::Loaded) later_.start();
    return loaded;
}

// --------------------------------------------------------------------------------- while playing

void GameKeeper::PositionReached(const GameState& position) {
    kept_ = position;
    Save();
}

// The pieces stay where they are, so that the board shows the end of the game at the next start too.
void GameKeeper::GameOver() {
    kept_ = state_;
    kept_.GameInProgress = No;
    kept_.MoveRecordCount = 0;
    Save();
    BeginFlush();
}

void GameKeeper::Save() {
    Write();
    const bool gameGoesOn = kept_.GameInProgress != No;
    TellFailure(settingsFile_, gameGoesOn);
    TellFailure(historyFile_, gameGoesOn);
}

void GameKeeper::AppendResult(const GameResult& result) {
    results_.Add(HistoryRecordText(LocalTime(), result, settings_));
    Write();
    TellFailure(historyFile_, false);
    BeginFlush();
}

void GameKeeper::Write() {
    TakeFlushErrors();
    if (mayWrite_) settingsFile_.written = SaveSettings(folder_, settings_, kept_, Durability::Lazy);
    historyFile_.written = results_.Write(folder_);
    for (File* file : {&settingsFile_, &historyFile_})
        file->told = file->told && file->Error() != FileError::None;
    if (!later_.isActive()) later_.start();
}

void GameKeeper::TellFailure(File& file, bool gameGoesOn) {
    if (file.told || file.Error() == FileError::None) return;
    file.told = true;
    const std::string comfort = gameGoesOn ? " El juego continúa." : "";
    if (Failed) Failed(SaveErrorTitle, SaveErrorText(file.Error(), file.name) + comfort);
}

// ------------------------------------------------------------------------------------- the disk

bool GameKeeper::IsFlushing() const {
    return flush_.valid() && flush_.wait_for(Duration::zero()) != std::future_status::ready;
}

void GameKeeper::TakeFlushErrors() {
    if (!flush_.valid() || IsFlushing()) return;
    const FlushErrors errors = flush_.get();
    settingsFile_.flushed = errors.settings;
    historyFile_.flushed = errors.history;
}

// Detached, because a thread that hangs in the disk can never be joined.
void GameKeeper::BeginFlush() {
    if (IsFlushing()) return later_.start();  // it may have begun before the last write
    TakeFlushErrors();
    std::promise<FlushErrors> result;
    flush_ = result.get_future();
    std::thread([folder = folder_, result = std::move(result)]() mutable {
        const FlushErrors errors{FlushFile(folder / SettingsFileName),
                                 FlushFile(folder / HistoryFileName)};
        FlushFolder(folder);
        result.set_value(errors);
    }).detach();
}

void GameKeeper::TryAgainAndFlush() {
    TakeFlushErrors();
    if (settingsFile_.Error() != FileError::None || historyFile_.Error() != FileError::None) Write();
    BeginFlush();
}

// ----------------------------------------------------------------------------------- at the end

bool GameKeeper::IsGameKept() const {
    const bool isWritten = settingsFile_.Error() == FileError::None;
    return isWritten ||
           (settingsFile_.flushed == FileError::None && IsStored(folder_, settings_, kept_));
}

std::string GameKeeper::SaveNow() {
    Write();
    return Lost();
}

std::string GameKeeper::SaveToLeave(Duration patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    Write();
    if (flush_.valid()) flush_.wait_until(end);  // begun before this write
    BeginFlush();
    flush_.wait_until(end);
    TakeFlushErrors();
    return Lost();
}

std::string GameKeeper::Lost() const {
    std::string lost;
    if (!IsGameKept()) {
        lost = SaveErrorText(settingsFile_.Error(), settingsFile_.name);
        lost += kept_.GameInProgress ? " La partida no queda guardada como está."
                                     : " Los últimos cambios no quedan guardados.";
    }
    if (historyFile_.Error() != FileError::None) {
        lost += (lost.empty() ? "" : "\n") + SaveErrorText(historyFile_.Error(), historyFile_.name);
        lost += " Faltan resultados en el Histórico.";
    }
    return lost;
}

}  // namespace zorva
