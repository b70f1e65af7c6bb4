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
bool IsControl(char character) {
    return static_cast<unsigned char>(character) < ' ';
}

// The game never writes control characters in a name, and windows could not show them. What is too long
// is cut.
std::string ReadName(FieldReader& reader, Colour colour) {
    const std::string_view bytes = reader.Text();
    if (std::any_of(bytes.begin(), bytes.end(), IsControl)) reader.Refuse(FileError::TypeMismatch);
    const std::string name = FromWindows1252(bytes.substr(0, LongestName));
    return Trimmed(name).empty() ? DefaultName(colour) : name;
}

// 1 stands for the first of two answers, 2 for the second.
Short ReadChoice(FieldReader& reader) {
    return reader.Number(1, 2);
}

// Only the form of the numbers is checked here; IsSound compares them with the board in the end.
void ReadPieces(FieldReader& reader, GameState& state, Colour colour) {
    state.PiecesInBox[colour] = reader.Number(0, PiecesPerColour);
    state.PiecesHome[colour] = reader.Number(0, PiecesPerColour);
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        state.PiecePosition[colour][piece] = reader.Number(0, LastSquare);
    }
}

void ReadPlayer(FieldReader& reader, Settings& settings, Colour colour) {
    settings.PlayerName[colour] = ReadName(reader, colour);
    settings.PlayerLevel[colour] = reader.Number(0, 100);
    settings.PlayerType[colour] = ReadChoice(reader);
    settings.PlayerActive[colour] = ReadChoice(reader);
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
    std::string_view cells = reader.Text();
    if (cells.size() != boardLength) reader.Refuse(FileError::TypeMismatch);
    for (Square square = 1; square <= LastSquare; ++square) {
        for (Short slot = 1; slot <= 3; ++slot) {
            state.SquareOccupants[square][slot] =
                reader.Cell(cells, 2, 0, CodeOf(ColourCount, PiecesPerColour));
        }
    }
}

// ReadRecords reads a negative count as 1. Any other may stand here: a game that has more moves than
// LongestGame (core/Turns.h) ends when it is continued.
void ReadGame(FieldReader& reader, GameState& state) {
    state.GameInProgress = reader.Number(Yes, No);
    state.MoveRecordCount = reader.Number(INT16_MIN, INT16_MAX);
    state.CurrentColour = reader.Number(0, ColourCount);
    state.RepeatTurn = reader.Number(Yes, No);
    state.SixesInRow = reader.Number(0, 3);
}

void ReadCommonSettings(FieldReader& reader, Settings& settings) {
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

std::optional<Settings> ReadSettingsAlone(std::string_view bytes) {
    FieldReader reader(bytes);
    Settings settings;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        reader.NextLine();
        reader.Skip(2 + PiecesPerColour);
        ReadPlayer(reader, settings, colour);
    }
    ActivateAllIfNone(settings.PlayerActive);
    reader.NextLine();
    reader.SkipLine();
    reader.NextLine();
    reader.Skip(5);
    ReadCommonSettings(reader, settings);
    reader.EndLine();
    if (reader.Error() != FileError::None) return std::nullopt;
    return settings;
}

SettingsReading ReadSettings(std::string_view bytes) {
    FieldReader reader(bytes);
    SettingsContent content;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        reader.NextLine();
        ReadPieces(reader, content.state, colour);
        ReadPlayer(reader, content.settings, colour);
    }
    ActivateAllIfNone(content.settings.PlayerActive);
    reader.NextLine();
    ReadBoard(reader, content.state);
    reader.NextLine();
    ReadGame(reader, content.state);
    ReadCommonSettings(reader, content.settings);
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
