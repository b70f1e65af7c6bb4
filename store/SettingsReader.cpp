// Reading the settings file; SettingsFile.cpp writes it.

#include <algorithm>

#include "core/Records.h"
#include "store/Encoding.h"
#include "store/FieldReader.h"
#include "store/SavedGame.h"
#include "store/SettingsFile.h"

namespace zorva {
namespace {

constexpr std::size_t boardLength = 600;  // 100 squares, 3 slots each, 2 characters per slot
constexpr std::size_t recordLength = 16;  // the widths of the eleven cells added up
/// Many times the length of any ordinary game (some 400 moves), and more than 7,000 below LongestGame
/// (core/Turns.h): a game that continues from here can still be played to its end.
constexpr Short mostMoves = 25'000;

bool IsControl(char character) {
    return static_cast<unsigned char>(character) < ' ';
}

// The game never writes control characters in a name, and windows could not show them.
std::string ReadName(FieldReader& reader, Colour colour) {
    const std::string_view bytes = reader.Text();
    if (std::any_of(bytes.begin(), bytes.end(), IsControl)) reader.Refuse(FileError::TypeMismatch);
    if (bytes.size() > LongestName) reader.Refuse(FileError::OutOfRange);
    const std::string name = FromWindows1252(bytes);
    return Trimmed(name).empty() ? DefaultName(colour) : name;
}

// 1 stands for the first of two answers, 2 for the second.
Short ReadChoice(FieldReader& reader) {
    return reader.Number(1, 2);
}

// Only the form of the numbers is checked here; IsSound compares them with the board in the end.
void ReadColour(FieldReader& reader, SettingsContent& content, Colour colour) {
    reader.NextLine();
    content.state.PiecesInBox[colour] = reader.Number(0, PiecesPerColour);
    content.state.PiecesHome[colour] = reader.Number(0, PiecesPerColour);
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        content.state.PiecePosition[colour][piece] = reader.Number(0, LastSquare);
    }
    content.settings.PlayerName[colour] = ReadName(reader, colour);
    content.settings.PlayerLevel[colour] = reader.Number(0, 100);
    content.settings.PlayerType[colour] = ReadChoice(reader);
    content.settings.PlayerActive[colour] = ReadChoice(reader);
}

// A file in which no colour takes part would start a game that nobody can
// play. The settings window could not repair it: it refuses to switch
// colours on during a game. So all four take part, as at a first start.
void ActivateAllIfNone(PerColour<Short>& active) {
    if (std::all_of(active.begin() + 1, active.end(), [](Short state) { return state == 2; })) {
        active = Settings{}.PlayerActive;
    }
}

void ReadBoard(FieldReader& reader, GameState& state) {
    reader.NextLine();
    std::string_view cells = reader.Text();
    if (cells.size() != boardLength) reader.Refuse(FileError::TypeMismatch);
    for (Square square = 1; square <= LastSquare; ++square) {
        for (Short slot = 1; slot <= 3; ++slot) {
            state.SquareOccupants[square][slot] =
                reader.Cell(cells, 2, 0, CodeOf(ColourCount, PiecesPerColour));
        }
    }
}

void ReadGame(FieldReader& reader, SettingsContent& content) {
    GameState& state = content.state;
    Settings& settings = content.settings;
    reader.NextLine();
    state.GameInProgress = reader.Number(Yes, No);
    // ReadRecords reads a negative count as 1.
    state.MoveRecordCount = reader.Number(INT16_MIN, mostMoves);
    state.CurrentColour = reader.Number(0, ColourCount);
    state.RepeatTurn = reader.Number(Yes, No);
    state.SixesInRow = reader.Number(0, 3);
    for (Short* choice :
         {&settings.PauseBetweenMoves, &settings.Tutor, &settings.PlayOrder, &settings.SoundOn,
          &settings.ButtonInfo, &settings.RuleSixAllOut, &settings.RuleLeaveAllInBox,
          &settings.RuleFiveAllInBox, &settings.RuleFiveSomeInBox}) {
        *choice = ReadChoice(reader);
    }
    settings.Speed = reader.Number(0, 100);
}

Short ReadFlag(FieldReader& reader, std::string_view& cells) {
    return reader.Cell(cells, 1, 0, 1) == 1 ? Yes : No;
}

// Cells of the widths that RecordLine writes. A value too wide for its cell makes the text longer than
// 16 characters, and the file is refused; no record of the game has one.
MoveRecord ReadRecord(FieldReader& reader) {
    reader.NextLine();
    std::string_view cells = reader.Text();
    if (cells.size() != recordLength) reader.Refuse(FileError::TypeMismatch);
    MoveRecord record;
    record.MoverColour = reader.Cell(cells, 1, 1, ColourCount);
    record.FollowingColour = reader.Cell(cells, 1, 0, ColourCount);
    record.Die = reader.Cell(cells, 1, 0, 6);
    record.Count = reader.Cell(cells, 2, 0, 20);
    record.Piece = reader.Cell(cells, 1, 0, PiecesPerColour);
    record.From = reader.Cell(cells, 3, 0, LastSquare);
    record.To = reader.Cell(cells, 3, 0, LastSquare);
    record.RepeatState = reader.Cell(cells, 1, 0, 2);
    record.Manual = ReadFlag(reader, cells);
    record.OnBehalf = reader.Cell(cells, 1, 0, 1);
    record.TurnEnd = ReadFlag(reader, cells);
    return record;
}

// NewMoveRecord opens each record as during play, so that the table grows as it did then. The last one
// opened is the unfinished move, which has no line in the file.
void ReadRecords(FieldReader& reader, GameState& state) {
    const Short unfinished = state.MoveRecordCount < 0 ? Short{1} : state.MoveRecordCount;
    state.MoveRecordCount = 0;
    while (state.MoveRecordCount < unfinished && reader.Error() == FileError::None) {
        NewMoveRecord(state);
        if (state.MoveRecordCount < unfinished) {
            state.MoveRecords[state.MoveRecordCount] = ReadRecord(reader);
        }
    }
}

}  // namespace

SettingsReading ReadSettings(std::string_view bytes) {
    FieldReader reader(bytes);
    SettingsContent content;
    for (Colour colour = 1; colour <= ColourCount; ++colour) ReadColour(reader, content, colour);
    ActivateAllIfNone(content.settings.PlayerActive);
    ReadBoard(reader, content.state);
    ReadGame(reader, content);
    ReadRecords(reader, content.state);
    reader.End();
    if (reader.Error() != FileError::None) return reader.Error();
    // The records come last in the file: here all numbers are known to be within their ranges.
    if (content.state.MoveRecordCount < 2) content.state.GameInProgress = No;
    ApplySettings(content.state, content.settings);
    RecogniseLeftovers(content.state);
    if (!IsSound(content.state)) return FileError::OutOfRange;
    return content;
}

}  // namespace zorva
