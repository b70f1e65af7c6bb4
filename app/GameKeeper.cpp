#include "app/GameKeeper.h"

#include <ctime>

#include "store/HistoryFile.h"

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

LoadedSettings GameKeeper::Load(const std::filesystem::path& folder) {
    folder_ = folder;
    LoadedSettings loaded = LoadSettings(folder);
    // A damaged file that could not be renamed is never overwritten: it may hold a game.
    mayWrite_ = loaded.outcome != LoadOutcome::Damaged || !loaded.keptAs.empty();
    kept_ = loaded.content.state;
    return loaded;
}

void GameKeeper::PositionReached(const GameState& position) {
    kept_ = position;
    Write(Durability::Lazy);
}

// The pieces stay where they are, so that the board shows the end of the game at the next start too.
void GameKeeper::GameOver() {
    kept_ = state_;
    kept_.GameInProgress = No;
    kept_.MoveRecordCount = 0;
    Write(Durability::Flushed);
}

void GameKeeper::Save() {
    Write(Durability::Flushed);
}

void GameKeeper::SaveAtEnd() {
    if (mayWrite_) SaveSettings(folder_, settings_, kept_, Durability::Flushed);
}

void GameKeeper::Write(Durability durability) {
    if (!mayWrite_) return;
    Report(SaveSettings(folder_, settings_, kept_, durability), SettingsFileName);
}

void GameKeeper::AppendResult(const GameResult& result) {
    Report(AppendToHistory(folder_, HistoryRecordText(LocalTime(), result, settings_)), HistoryFileName);
}

void GameKeeper::Report(FileError error, const char* fileName) {
    const bool failed = error != FileError::None;
    const bool tell = failed && !failing_;
    failing_ = failed;
    if (tell && Failed) Failed(SaveErrorTitle, SaveErrorText(error, fileName));
}

}  // namespace zorva
