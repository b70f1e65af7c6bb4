#include "store/SettingsFile.h"

#include <initializer_list>

#include "store/Encoding.h"

namespace zorva {
namespace {

constexpr const char* lineEnd = "\r\n";

// Right-aligned in at least `width` characters; a longer number is written whole.
std::string Padded(Short number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return digits.size() < width ? std::string(width - digits.size(), ' ') + digits : digits;
}

// Numbers in decimal with commas between them.
std::string Joined(std::initializer_list<Short> numbers) {
    std::string line;
    for (const Short number : numbers) {
        if (!line.empty()) line += ',';
        line += std::to_string(number);
    }
    return line;
}

// The format has no way to write a quote or a line end inside quotes. The settings window refuses both
// in names. From any other caller they are replaced, so that the file stays readable.
std::string Quoted(std::string text) {
    for (char& character : text) {
        if (character == '"' || character == '\r' || character == '\n') character = '\'';
    }
    return '"' + text + '"';
}

std::string ColourLine(const Settings& settings, const GameState& state, Colour colour) {
    const auto& position = state.PiecePosition[colour];
    return Joined({state.PiecesInBox[colour], state.PiecesHome[colour], position[1], position[2],
                   position[3], position[4]}) +
           ',' + Quoted(ToWindows1252(settings.PlayerName[colour])) + ',' +
           Joined({settings.PlayerLevel[colour], settings.PlayerType[colour],
                   settings.PlayerActive[colour]}) +
           lineEnd;
}

// Three cells of two characters for each square, 600 in all; an empty slot is " 0".
std::string BoardLine(const GameState& state) {
    std::string board;
    for (Square square = 1; square <= LastSquare; ++square) {
        for (Short slot = 1; slot <= 3; ++slot) board += Padded(state.SquareOccupants[square][slot], 2);
    }
    return Quoted(board) + lineEnd;
}

// The state of the game and the settings that all players share.
std::string GameLine(const Settings& settings, const GameState& state) {
    const Short inProgress = state.MoveRecordCount < 2 ? No : state.GameInProgress;
    return Joined({inProgress, state.MoveRecordCount, state.CurrentColour, Yes, state.SixesInRow,
                   settings.PauseBetweenMoves, settings.Tutor, settings.PlayOrder, settings.SoundOn,
                   settings.ButtonInfo, settings.RuleSixAllOut, settings.RuleLeaveAllInBox,
                   settings.RuleFiveAllInBox, settings.RuleFiveSomeInBox, settings.Speed}) +
           lineEnd;
}

// Manual and TurnEnd are -1 or 0 in memory but 1 or 0 in the file: their cells are one character wide.
Short FlagDigit(Short flag) {
    return flag == Yes ? 1 : 0;
}

// ReadRecord in SettingsReader.cpp expects the same widths.
std::string RecordLine(const MoveRecord& record) {
    const std::string cells = Padded(record.MoverColour, 1) + Padded(record.FollowingColour, 1) +
                              Padded(record.Die, 1) + Padded(record.Count, 2) + Padded(record.Piece, 1) +
                              Padded(record.From, 3) + Padded(record.To, 3) +
                              Padded(record.RepeatState, 1) + Padded(FlagDigit(record.Manual), 1) +
                              Padded(record.OnBehalf, 1) + Padded(FlagDigit(record.TurnEnd), 1);
    return Quoted(cells) + lineEnd;
}

}  // namespace

std::string SettingsText(const Settings& settings, const GameState& state) {
    std::string text;
    for (Colour colour = 1; colour <= ColourCount; ++colour) text += ColourLine(settings, state, colour);
    text += BoardLine(state);
    text += GameLine(settings, state);
    // The record with the number MoveRecordCount belongs to the unfinished move and is not written.
    for (Short move = 1; move < state.MoveRecordCount; ++move) {
        text += RecordLine(state.MoveRecords[move]);
    }
    return text;
}

bool CanStandInName(char32_t character) {
    const bool isControl = character < ' ' || (character >= 0x7F && character < 0xA0);
    return !isControl && character != '"' && IsInWindows1252(character);
}

}  // namespace zorva
