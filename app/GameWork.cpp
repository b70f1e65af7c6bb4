#include "app/GameWork.h"

#include <algorithm>
#include <cmath>

#include "app/PositionWork.h"

namespace zorva {
namespace {

// The settings without those that have nothing to do with chances.
Settings RulesOf(Settings settings) {
    const Settings usual;
    settings.PlayerName = usual.PlayerName;
    settings.PauseBetweenMoves = usual.PauseBetweenMoves;
    settings.Tutor = usual.Tutor;
    settings.SoundOn = usual.SoundOn;
    settings.ButtonInfo = usual.ButtonInfo;
    settings.Speed = usual.Speed;
    return settings;
}

void Add(engine::Estimate& sum, const engine::Estimate& more) {
    sum.value += more.value;
    sum.error = std::hypot(sum.error, more.error);
}

void Add(engine::SeatWorth& sum, const engine::SeatWorth& more) {
    Add(sum.own.luck, more.own.luck);
    Add(sum.own.choice, more.own.choice);
    Add(sum.own.cost, more.own.cost);
    Add(sum.luck, more.luck);
    Add(sum.choice, more.choice);
    Add(sum.shift, more.shift);
    sum.end = more.end;
}

}  // namespace

std::size_t GameWork::RecordsInCommon(const GameState& game) const {
    std::size_t record = 1;
    const auto end = static_cast<std::size_t>(std::min(game.MoveRecordCount, game_.MoveRecordCount));
    while (record < end && game.MoveRecords[record] == game_.MoveRecords[record]) ++record;
    return record - 1;
}

// After two sixes a third one may follow that leaves no record: its luck stands with that of the second,
// so that the chunk of the second is made anew.
void GameWork::Follow(const GameState& game, const Settings& settings) {
    const std::size_t common = RecordsInCommon(game);
    if (RulesOf(settings) != RulesOf(settings_)) chunks_.clear();
    const bool isSame = game == game_ && !chunks_.empty();
    game_ = game;
    settings_ = settings;
    if (isSame) return;
    while (!chunks_.empty() && (chunks_.back().last > common || !chunks_.back().isSettled))
        chunks_.pop_back();
    const std::size_t first = chunks_.empty() ? 1 : chunks_.back().last + 1;
    if (first > Records() && !chunks_.empty()) return;
    chunks_.push_back({first, Records(), Records() > 0 && game.SixesInRow != 2,
                       engine::GameAnalysis(game, settings, ChancesSeed, first)});
}

bool GameWork::IsSharp() const {
    return std::all_of(chunks_.begin(), chunks_.end(),
                       [this](const Chunk& chunk) { return chunk.tally.count >= most_; });
}

void GameWork::Sharpen(unsigned threads, const std::stop_token& stop) {
    Chunk& chunk = *std::min_element(
        chunks_.begin(), chunks_.end(),
        [](const Chunk& one, const Chunk& other) { return one.tally.count < other.tally.count; });
    const engine::PlayOuts& games = chunk.analysis.Games();
    const std::uint64_t count = chunk.tally.count;
    const std::uint64_t last = std::min(count + NextRange(count, games.Moments()), most_);
    chunk.tally += games.Play(count, last, threads, stop);
}

GameReport GameWork::Report() const {
    GameReport report;
    report.game = game_;
    report.settings = settings_;
    double done = 0, all = 0;
    bool isAnalysed = true;  // so far
    for (const Chunk& chunk : chunks_) {
        const auto moments = static_cast<double>(chunk.analysis.Games().Moments());
        done += moments * static_cast<double>(chunk.tally.count);
        all += moments * static_cast<double>(most_);
        isAnalysed = isAnalysed && chunk.tally.count > 0;
        if (!isAnalysed) continue;
        for (std::size_t record = chunk.first; record <= chunk.last; ++record)
            report.worths.push_back(chunk.analysis.OfRecord(record, chunk.tally));
        for (engine::Seat seat = 0; seat < engine::SeatCount; ++seat) {
            const engine::SeatWorth worth = chunk.analysis.OfSeat(seat, chunk.tally);
            if (&chunk == &chunks_.front()) report.sums[seat].start = worth.start;
            Add(report.sums[seat], worth);
        }
    }
    report.progress = all == 0 ? 1 : done / all;
    return report;
}

}  // namespace zorva
