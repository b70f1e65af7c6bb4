#include "tools/PlayCommand.h"

#include <fstream>
#include <optional>
#include <ostream>

#include "core/DecidedThrows.h"
#include "core/Ending.h"
#include "core/GameStart.h"
#include "core/Records.h"
#include "tools/CommandLine.h"
#include "tools/Failure.h"
#include "tools/SettingsArgument.h"
#include "tools/WithoutPeople.h"

namespace zorva {
namespace {

/// What is printed while a game is played.
struct Wanted {
    bool log = false;      ///< each log line, including the heading
    bool records = false;  ///< each move record
};

// The fields in their order in the file, but flags as they are in memory, -1 for yes.
void PrintRecord(std::ostream& out, Short moveNumber, const MoveRecord& record) {
    out << moveNumber << ": " << record.MoverColour << ',' << record.FollowingColour << ',' << record.Die
        << ',' << record.Count << ',' << record.Piece << ',' << record.From << ',' << record.To << ','
        << record.RepeatState << ',' << record.Manual << ',' << record.OnBehalf << ',' << record.TurnEnd
        << '\n';
}

/// The world of a scripted game: it supplies the throws, prints the log and stops the game in time.
class ScriptedWorld : public DecidedThrows {
public:
    ScriptedWorld(GameState& state, const std::vector<Short>& throws, Wanted wanted, std::ostream& out)
        : state_(state), throws_(throws), wanted_(wanted), out_(out) {}

    void BeginLog(std::string_view heading) override {
        if (wanted_.log) out_ << heading << '\n';
    }

    void AddLogLine(Short moveNumber, const MoveRecord& record) override {
        if (wanted_.log) out_ << LogLineText(moveNumber, record) << '\n';
        if (wanted_.records) PrintRecord(out_, moveNumber, record);
    }

    // Neither a bonus move nor the end of a won game needs a throw.
    void PositionReached(const GameState& position) override {
        if (HasWon(position)) won_ = position;
        stopped_ = position.ThrowNext && !HasWon(position) && used_ == throws_.size();
        if (stopped_) state_.GameInProgress = No;
    }

    bool HasStopped() const { return stopped_; }
    /// The position in which the game was won; nothing before that.
    const std::optional<GameState>& Won() const { return won_; }

protected:
    // PositionReached stops the game before this would read beyond the last throw.
    Short NextThrow() override { return throws_[used_++]; }

private:
    GameState& state_;
    const std::vector<Short>& throws_;  // must outlive the world
    const Wanted wanted_;
    std::ostream& out_;
    std::size_t used_ = 0;
    bool stopped_ = false;
    std::optional<GameState> won_;
};

// The 16 positions, the occupied slots as SQUARE.SLOT=CODE, and whose turn it is.
void PrintPosition(const GameState& state, std::ostream& out) {
    out << "positions";
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            out << ' ' << state.PiecePosition[colour][piece];
        }
    }
    out << "\nslots";
    for (Square square = 1; square <= LastSquare; ++square) {
        for (Short slot = 1; slot <= 3; ++slot) {
            const PieceCode code = state.SquareOccupants[square][slot];
            if (code != 0) out << ' ' << square << '.' << slot << '=' << code;
        }
    }
    out << "\nturn " << state.CurrentColour << ' ' << state.MoveRecordCount << ' ' << state.SixesInRow
        << '\n';
}

// Nothing for a game that stopped because the throws ran out.
void PrintResult(const GameState& state, const Settings& settings, std::ostream& out) {
    if (state.GameInProgress) return;
    const GameResult result = ResultOf(state, settings);
    out << "winner " << result.winner << " points " << PointsText(result.points) << '\n';
}

// There is no draw for the first colour here, since it would use up throws.
Colour FirstColour(const CommandLine& options, const Settings& settings) {
    const Colour first = static_cast<Colour>(options.Number("--first", 1, ColourCount));
    if (IsTakingPart(settings, first)) return first;
    throw Failure("colour " + std::to_string(first) + " takes no part in this game");
}

// `number` counts the throws from 1. Of a long word the message shows the beginning.
Short ThrowOf(const std::string& word, std::size_t number, const std::string& fileName) {
    if (word.size() == 1 && word[0] >= '1' && word[0] <= '6') return static_cast<Short>(word[0] - '0');
    throw Failure(fileName + ": throw " + std::to_string(number) + " is \"" + word.substr(0, 20) +
                  "\" and not a face from 1 to 6");
}

std::vector<Short> ReadThrows(const std::string& fileName) {
    std::ifstream file(fileName);
    std::vector<Short> throws;
    std::string word;
    while (file >> word) throws.push_back(ThrowOf(word, throws.size() + 1, fileName));
    // A file that cannot be opened, or a folder, has no end to be reached.
    if (!file.eof() || file.bad()) throw Failure("cannot read " + fileName);
    return throws;
}

// Leaves the game in progress if the throws run out. Returns the position in which it was won, if it
// was.
std::optional<GameState> Play(GameState& state, const Settings& settings, Colour first,
                              const std::vector<Short>& throws, Wanted wanted, std::ostream& out) {
    // `settings` itself stays, so that a saved game has the persons that it had.
    const Settings played = WithoutPeople(settings);
    ScriptedWorld world(state, throws, wanted, out);
    const GameContext game{state, played, world};
    ResetGame(game);
    PlayFrom(game, first);
    // Ending the game was only the way out of PlayFrom.
    if (world.HasStopped()) state.GameInProgress = Yes;
    return world.Won();
}

}  // namespace

void PlayCommand(const std::vector<std::string>& arguments, std::ostream& out) {
    const CommandLine options(arguments, {"--settings", "--first", "--dice", "--save"},
                              {"--log", "--records", "--keep-won"});
    SettingsContent file = ReadSettingsArgument(options.Text("--settings"));
    const Colour first = FirstColour(options, file.settings);
    const std::vector<Short> throws = ReadThrows(options.Text("--dice"));
    const auto won = Play(file.state, file.settings, first, throws,
                          {options.Has("--log"), options.Has("--records")}, out);
    PrintPosition(file.state, out);
    PrintResult(file.state, file.settings, out);
    // Written as it stands: a game that stopped can be continued in the window, and one that was won is
    // kept on demand as the window keeps it until its result has been answered.
    if (won && options.Has("--keep-won")) file.state = *won;
    if (options.Has("--save")) WriteSettingsArgument(options.Text("--save"), file);
}

}  // namespace zorva
