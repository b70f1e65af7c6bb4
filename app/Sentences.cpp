#include "app/Sentences.h"

#include <QStringList>
#include <QtMath>
#include <algorithm>
#include <utility>
#include <vector>

#include "core/Board.h"
#include "core/Ending.h"
#include "core/Records.h"
#include "core/Rules.h"

namespace zorva {
namespace {

constexpr Short lastMovesTold = 6;

// "la casilla 12", "la casilla 3 de su columna", "la meta", "el cuadro de espera".
QString PlaceText(Colour colour, Square square) {
    if (square == 0) return "el cuadro de espera";
    if (square == GoalSquare[colour]) return "la meta";
    if (square <= LastRingSquare) return QStringLiteral("la casilla %1").arg(square);
    return QStringLiteral("la casilla %1 de su columna").arg(square - FirstColumnSquare[colour] + 1);
}

QString From(Colour colour, Square square) {
    return square == 0 ? QStringLiteral("del cuadro de espera") : "de " + PlaceText(colour, square);
}

QString To(Colour colour, Square square) {
    return square == 0 ? QStringLiteral("al cuadro de espera") : "a " + PlaceText(colour, square);
}

// Where a piece stands, behind a comma: "casilla 12", "en la meta".
QString StandsAt(Colour colour, Square square) {
    const QString place = PlaceText(colour, square);
    return place.startsWith("la casilla") ? place.mid(3) : "en " + place;
}

QString SquareName(Square square) {
    if (square <= LastRingSquare) return QStringLiteral("Casilla %1").arg(square);
    const Colour colour = ToShort((square - FirstColumnSquare[1]) / 8 + 1);
    const QString of = QString::fromStdString(DefaultName(colour)).toLower();
    if (square == GoalSquare[colour]) return "Meta del " + of;
    return QStringLiteral("Columna del %1, casilla %2")
        .arg(of)
        .arg(square - FirstColumnSquare[colour] + 1);
}

QString PieceOfPlayer(const Settings& settings, PieceCode code) {
    return QStringLiteral("ficha %1 de %2").arg(PieceOf(code)).arg(PlayerText(settings, ColourOf(code)));
}

QString Capitalised(QString sentence) {
    sentence[0] = sentence[0].toUpper();
    return sentence;
}

// "va de la casilla 56 a la casilla 61", "sale a la casilla 56", "vuelve de ... al cuadro de espera".
QString WayText(Colour colour, Square from, Square to) {
    if (from == 0) return "sale " + To(colour, to);
    return (to == 0 ? "vuelve " : "va ") + From(colour, from) + " " + To(colour, to);
}

QString CaptureText(const Settings& settings, PieceCode captured) {
    return captured == 0 ? QString() : " y come la " + PieceOfPlayer(settings, captured);
}

bool IsThirdSix(const MoveRecord& record) {
    return record.Die == 6 && record.To == 0 && MovesAPiece(record);
}

// What led to the move: "Verde saca 6 y cuenta 12", "Verde cuenta 20". Empty when that is known, or when
// neither the die nor a bonus led to it.
QString CountText(const Settings& settings, const ToldMove& move) {
    const MoveRecord& record = move.record;
    if (move.throwIsKnown || record.OnBehalf != 0) return {};
    if (record.Die == 0) {
        return PlayerText(settings, record.MoverColour) + QStringLiteral(" cuenta %1").arg(record.Count);
    }
    const QString thrown = ThrowText(settings, record.MoverColour, record.Die);
    if (IsThirdSix(record)) return thrown + " por tercera vez";
    return record.Count == record.Die ? thrown
                                      : thrown + QStringLiteral(" y cuenta %1").arg(record.Count);
}

QString PassText(const Settings& settings, const ToldMove& move) {
    const MoveRecord& record = move.record;
    const QString player = PlayerText(settings, record.MoverColour);
    if (record.Die == 0) return player + QStringLiteral(" no puede contar %1.").arg(record.Count);
    if (move.throwIsKnown) return player + " pasa.";
    return ThrowText(settings, record.MoverColour, record.Die) + " y pasa.";
}

QString ByHandText(const Settings& settings, const MoveRecord& record) {
    return Capitalised("la " + PieceOfPlayer(settings, CodeOf(record.MoverColour, record.Piece))) +
           " se pone a mano en " + PlaceText(record.MoverColour, record.To) + ".";
}

// " para contar 12", where the person who chooses a piece counts something else than the die shows.
QString ToCountText(const GameState& state) {
    if (state.MoveCount == state.DieValue) return {};
    return QStringLiteral(" para contar %1").arg(state.MoveCount);
}

QString NumberedPieces(QStringList numbers) {
    if (numbers.size() == PiecesPerColour) return "las cuatro fichas";
    const QString last = numbers.takeLast();
    return numbers.isEmpty() ? "ficha " + last : "fichas " + numbers.join(", ") + " y " + last;
}

// The pieces of a colour by the places where they stand: "fichas 2 y 3 en el cuadro de espera".
QString PiecesText(const GameState& state, Colour colour) {
    QStringList places;
    PerPiece<bool> told{};
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        if (told[piece]) continue;
        const Square square = state.PiecePosition[colour][piece];
        QStringList numbers;
        for (Short other = piece; other <= PiecesPerColour; ++other) {
            if (state.PiecePosition[colour][other] != square) continue;
            told[other] = true;
            numbers << QString::number(other);
        }
        places << NumberedPieces(numbers) + " en " + PlaceText(colour, square);
    }
    return places.join("; ");
}

// The pieces of the colour that chooses one, each with what it can do.
QString ChoicesText(const GameState& state, const Settings& settings) {
    QStringList choices;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece)
        choices << ChoiceText(state, settings, piece);
    return choices.join(' ');
}

}  // namespace

QString NameText(const Settings& settings, Colour colour) {
    return QString::fromStdString(Trimmed(settings.PlayerName[colour]));
}

QString PlayerText(const Settings& settings, Colour colour) {
    const QString name = NameText(settings, colour);
    const QString colourName = QString::fromStdString(DefaultName(colour));
    return name == colourName ? name : name + " (" + colourName + ")";
}

QString PieceText(const GameState& state, const Settings& settings, PieceCode code) {
    return Capitalised(PieceOfPlayer(settings, code)) + ", " +
           StandsAt(ColourOf(code), state.PositionOf(code));
}

QString SquareText(const GameState& state, const Settings& settings, Square square) {
    QStringList pieces;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            if (state.PiecePosition[colour][piece] != square) continue;
            pieces << PieceOfPlayer(settings, CodeOf(colour, piece));
        }
    }
    const QString safe = IsSafeSquare(square) ? QStringLiteral(", segura") : QString();
    return SquareName(square) + safe + ": " + (pieces.isEmpty() ? "libre" : pieces.join(", "));
}

QString LiftedText(const Settings& settings, PieceCode code) {
    return Capitalised(PieceOfPlayer(settings, code)) + " levantada. Elija la casilla con las flechas.";
}

QString PutBackText(const GameState& state, PieceCode code) {
    return "La ficha vuelve " + To(ColourOf(code), state.PositionOf(code)) + ".";
}

QString DieText(const Settings& settings, Colour colour, Short face, bool ready) {
    const QString shows = face == 0 ? QStringLiteral("vacío")
                          : ready   ? QStringLiteral("listo para tirar")
                                    : QString::number(face);
    return QStringLiteral("Dado de %1: %2").arg(PlayerText(settings, colour), shows);
}

ToldMove ToldMove::AboutToBeMade(const GameState& state, const MoveRecord& record) {
    ToldMove move{record};
    if (!MovesAPiece(record) || record.Manual || record.To == 0) return move;
    const Colour colour = record.MoverColour;
    move.captured = VictimOf(state, colour, record.To);
    if (move.captured != 0 && !IsSafeSquare(record.To)) move.bonus = CaptureBonus;
    const bool isLast = state.PiecesHome[colour] == PiecesPerColour - 1;
    if (record.To == GoalSquare[colour] && !isLast) move.bonus = ArrivalBonus;
    return move;
}

ToldMove ToldMove::Made(const GameState& state, Short move) {
    const MoveRecord& record = state.MoveRecords[move];
    ToldMove told{record, 0, record.OnBehalf != 0 ? Short{0} : BonusDueAfter(record)};
    const MoveRecord& next = state.MoveRecords[move + 1];
    if (record.OnBehalf != 0 || next.OnBehalf == 0) return told;
    told.captured = CodeOf(next.MoverColour, next.Piece);
    told.bonus = BonusDueAfter(next);
    return told;
}

QString ThrowText(const Settings& settings, Colour colour, Short face) {
    return PlayerText(settings, colour) + QStringLiteral(" saca %1").arg(face);
}

QString MoveText(const Settings& settings, const ToldMove& move) {
    const MoveRecord& record = move.record;
    if (!MovesAPiece(record)) return PassText(settings, move);
    if (record.Manual) return ByHandText(settings, record);
    const QString count = CountText(settings, move);
    const QString piece = count.isEmpty()
                              ? "La " + PieceOfPlayer(settings, CodeOf(record.MoverColour, record.Piece))
                              : count + QStringLiteral(": la ficha %1").arg(record.Piece);
    QString text = piece + " " + WayText(record.MoverColour, record.From, record.To) +
                   CaptureText(settings, move.captured) + ".";
    if (move.bonus != 0) text += QStringLiteral(" Gana un premio de %1.").arg(move.bonus);
    return text;
}

void MoveSum::Add(const MoveRecord& record) {
    ++moves;
    if (!MovesAPiece(record)) return;
    isMoved[record.Piece] = true;
    reached[record.Piece] = record.To;
}

QString SumText(const Settings& settings, Colour colour, const MoveSum& sum) {
    QStringList pieces;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        if (!sum.isMoved[piece]) continue;
        pieces << QStringLiteral("ficha %1 %2").arg(piece).arg(To(colour, sum.reached[piece]));
    }
    const QString player = PlayerText(settings, colour);
    if (pieces.isEmpty()) return player + QStringLiteral(" pasa %1 veces.").arg(sum.moves);
    return player + QStringLiteral(" hace %1 jugadas: ").arg(sum.moves) + pieces.join("; ") + ".";
}

QString ChoiceText(const GameState& state, const Settings& settings, Short piece) {
    const Colour colour = state.CurrentColour;
    const Square from = state.PiecePosition[colour][piece];
    const QString stands = QStringLiteral("Ficha %1, %2: ").arg(piece).arg(StandsAt(colour, from));
    if (state.MovablePieces[piece] == No) return stands + "no puede mover.";
    const Square to = DestinationOf(colour, state.MoveCount, from);
    return stands + (from == 0 ? "sale " : "va ") + To(colour, to) +
           CaptureText(settings, VictimOf(state, colour, to)) + ".";
}

QString AdviceText(const GameState& state, const Settings& settings) {
    const Colour colour = state.CurrentColour;
    return QStringLiteral("Consejo: la ficha %1 ").arg(state.BestPiece) +
           WayText(colour, state.BestFrom, state.BestTo) +
           CaptureText(settings, VictimOf(state, colour, state.BestTo)) + ".";
}

QString TurnText(const GameState& state, const Settings& settings) {
    if (!state.GameInProgress) return "No hay ninguna partida en curso. Con F2 empieza una.";
    if (state.WaitingForMove) {
        return "Elija una ficha" + ToCountText(state) +
               QStringLiteral(": puede mover %1.").arg(state.LegalMoveCount);
    }
    const QString player = PlayerText(settings, state.CurrentColour);
    if (!state.WaitingForThrow) return "Turno de " + player + ".";
    const bool byComputer = settings.PlayerType[state.CurrentColour] == 1;
    return (state.RepeatTurn ? "Repite " : "Turno de ") + player + (byComputer ? ", el ordenador" : "") +
           ": puede tirar el dado.";
}

namespace {

// The winner's place is 1. Two colours share a place when they have equally many pieces at home and
// equally far to go.
int PlaceInGame(const GameState& state, const Settings& settings, Colour colour) {
    const auto walked = [&](Colour of) {
        return std::pair(state.PiecesHome[of], StepsWalked(state, of));
    };
    int place = 1;
    for (Colour other = 1; other <= ColourCount; ++other) {
        if (IsTakingPart(settings, other) && walked(other) > walked(colour)) ++place;
    }
    return place;
}

std::vector<Colour> ByPlace(const GameState& state, const Settings& settings) {
    std::vector<Colour> colours = ColoursTakingPart(settings);
    std::stable_sort(colours.begin(), colours.end(), [&](Colour one, Colour other) {
        return PlaceInGame(state, settings, one) < PlaceInGame(state, settings, other);
    });
    return colours;
}

// Of the game that has ended; empty when there was none or nobody has won it.
QString FinalText(const GameState& state, const Settings& settings) {
    QString result;
    for (const Colour colour : HasWon(state) ? ByPlace(state, settings) : std::vector<Colour>{})
        result += PlayerText(settings, colour) + ": " + OutcomeText(state, settings, colour) + " ";
    return result;
}

}  // namespace

QString NoThrowAwaitedText(const Settings& settings) {
    return settings.PauseBetweenMoves == 1
               ? "solo cuando se espera la tirada."
               : "solo cuando se espera la tirada. Active antes la pausa entre jugadas, con F3.";
}

QString PositionText(const GameState& state, const Settings& settings) {
    QStringList sentences{TurnText(state, settings)};
    if (!state.GameInProgress) return FinalText(state, settings) + sentences.first();
    for (Short next = 0; next < ColourCount; ++next) {
        const auto colour = static_cast<Colour>((state.CurrentColour - 1 + next) % ColourCount + 1);
        if (!IsTakingPart(settings, colour)) continue;
        const bool chooses = state.WaitingForMove && next == 0;
        sentences << PlayerText(settings, colour) + ": " +
                         (chooses ? ChoicesText(state, settings) : PiecesText(state, colour) + ".");
    }
    return sentences.join(' ');
}

QString NumberedMoveText(const GameState& state, const Settings& settings, Short move) {
    return QStringLiteral("Jugada %1. ").arg(move) + MoveText(settings, ToldMove::Made(state, move));
}

QString LastMovesText(const GameState& state, const Settings& settings) {
    QStringList moves;
    for (Short move = ToShort(state.MoveRecordCount - 1); move >= 1 && moves.size() < lastMovesTold;
         --move) {
        if (state.MoveRecords[move].OnBehalf == 0)
            moves.prepend(NumberedMoveText(state, settings, move));
    }
    return moves.isEmpty() ? QStringLiteral("No hay ninguna jugada.") : moves.join(' ');
}

QString TapeText(const GameState& state, const Settings& settings, bool forward) {
    const Short last = ToShort(state.MoveRecordCount - 1);
    // A captured piece returns in the turn of its captor, though the house of its own colour is lit.
    const MoveRecord& next = state.MoveRecords[state.MoveRecordCount];
    const Colour onTurn = next.OnBehalf != 0 ? ColourOnTurn(next) : state.CurrentColour;
    const QString turn = " Turno de " + PlayerText(settings, onTurn) + ".";
    if (forward) return NumberedMoveText(state, settings, last) + turn;
    QString text = QStringLiteral("Deshecha la jugada %1").arg(state.MoveRecordCount);
    const MoveRecord& undone = state.MoveRecords[state.MoveRecordCount];
    if (MovesAPiece(undone)) {
        text += ": la " + PieceOfPlayer(settings, CodeOf(undone.MoverColour, undone.Piece)) +
                " está otra vez en " + PlaceText(undone.MoverColour, undone.From);
    }
    return text + (last == 0 ? ". Principio de la partida." : ".") + turn;
}

// ------------------------------------------------------------------- the line and the cards

namespace {

bool IsPersonPlaying(const Settings& settings) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (IsTakingPart(settings, colour) && settings.PlayerType[colour] == 2) return true;
    }
    return false;
}

QString HintAboutPlayers(const Settings& settings) {
    return IsPersonPlaying(settings) ? QString()
                                     : QStringLiteral("Juega solo el ordenador: F3 lo cambia.");
}

Prompt PromptWithoutGame(const GameState& state, const Settings& settings) {
    const QString start = "Pulse el botón de los dados para ";
    if (!HasWon(state)) return {start + "empezar", HintAboutPlayers(settings), true};
    return {NameText(settings, state.CurrentColour) + ":\n¡ha ganado!", start + "jugar otra vez.", true,
            state.CurrentColour};
}

Prompt PromptForThrow(const GameState& state, const Settings& settings) {
    const QString name = NameText(settings, state.CurrentColour);
    if (state.ManualMode) {
        return {"Modo manual:\narrastre una ficha", "El botón derecho o F10 lo dejan.", true};
    }
    const bool byPerson = settings.PlayerType[state.CurrentColour] == 2;
    const QString repeats = state.RepeatTurn ? QStringLiteral("repite, ") : QString();
    return {name + ":\n" + repeats + (byPerson ? "pulse para tirar" : "pulse para que tire"),
            HintAboutPlayers(settings), true, state.CurrentColour};
}

Prompt PromptForMove(const GameState& state, const Settings& settings) {
    return {NameText(settings, state.CurrentColour) +
                QStringLiteral(":\ncuente %1 con una de las %2 fichas marcadas")
                    .arg(state.MoveCount)
                    .arg(state.LegalMoveCount),
            {},
            true,
            state.CurrentColour};
}

// The move that was made with a colour's last throw, or by hand; 0 when there is none. What follows from
// it, such as a bonus, has records of its own up to `last`.
Short LastThrowOf(const GameState& state, Colour colour, Short& last) {
    last = ToShort(state.MoveRecordCount - 1);
    while (last >= 1 && ColourOnTurn(state.MoveRecords[last]) != colour) --last;
    Short move = last;
    const auto follows = [&](Short number) {
        const MoveRecord& record = state.MoveRecords[number];
        return record.Die == 0 && !record.Manual && ColourOnTurn(record) == colour;
    };
    while (move > 1 && follows(move) && ColourOnTurn(state.MoveRecords[move - 1]) == colour) --move;
    const Short before = move < 1 ? Short{0} : FirstExitOf(state, move);
    return before != 0 ? before : move;
}

// "salió con una ficha", "capturó a Rojo", "contó 20"; empty for a plain walk.
QString DeedText(const Settings& settings, const MoveRecord& record) {
    if (record.OnBehalf) return "capturó a " + NameText(settings, record.MoverColour);
    if (!MovesAPiece(record)) {
        return record.Die != 0 ? QStringLiteral("no pudo mover")
                               : QStringLiteral("no pudo contar %1").arg(record.Count);
    }
    if (record.To == 0) return "perdió una ficha";
    if (record.From == 0) return "salió con una ficha";
    const bool arrives = record.To == GoalSquare[record.MoverColour];
    QString counts =
        record.Count == record.Die ? QString() : QStringLiteral("contó %1").arg(record.Count);
    if (!arrives) return counts;
    return counts.isEmpty() ? QStringLiteral("llegó a la meta") : counts + " hasta la meta";
}

QString PlainWalkText(const MoveRecord& record) {
    if (record.To > LastRingSquare) return " y avanzó por su columna";
    return QStringLiteral(": de %1 a %2").arg(record.From).arg(record.To);
}

QString DeedsText(const GameState& state, const Settings& settings, Short first, Short last) {
    QStringList deeds;
    for (Short move = first; move <= last; ++move) {
        const QString deed = DeedText(settings, state.MoveRecords[move]);
        if (!deed.isEmpty()) deeds << deed;
    }
    if (deeds.count("salió con una ficha") == 2) {
        deeds.removeAll("salió con una ficha");
        deeds.prepend("salió con dos fichas");
    }
    if (deeds.isEmpty()) return PlainWalkText(state.MoveRecords[first]);
    const QString final = " y " + deeds.takeLast();
    return deeds.isEmpty() ? final : ", " + deeds.join(", ") + final;
}

QString SpokenLastThrow(const GameState& state, const Settings& settings, Colour colour) {
    Short last = 0;
    const Short move = LastThrowOf(state, colour, last);
    if (move < 1) return {};
    const MoveRecord& record = state.MoveRecords[move];
    if (record.Manual) return "movió una ficha a mano";
    if (record.Die == 0) return DeedsText(state, settings, move, last).mid(3);
    const QString third = IsThirdSix(record) ? QStringLiteral(" por tercera vez") : QString();
    return QStringLiteral("sacó %1").arg(record.Die) + third + DeedsText(state, settings, move, last);
}

}  // namespace

Short FirstExitOf(const GameState& state, Short move) {
    if (state.MoveRecords[move].OnBehalf != 0 || !FollowsByItself(state, move)) return 0;
    do --move;
    while (state.MoveRecords[move].OnBehalf != 0);
    return move;
}

Prompt PromptOf(const GameState& state, const Settings& settings, Short tape) {
    if (!state.GameInProgress) return PromptWithoutGame(state, settings);
    const QString name = NameText(settings, state.CurrentColour);
    if (tape >= 0) {
        return {tape == 0 ? QStringLiteral("Grabadora:\nprincipio de la partida")
                          : QStringLiteral("Grabadora:\njugada %1").arg(tape),
                "Apáguela para seguir jugando.", true};
    }
    if (state.WaitingForThrow) return PromptForThrow(state, settings);
    if (HasWon(state)) return {name + ":\n¡ha ganado!", {}, true, state.CurrentColour};
    if (state.WaitingForMove && settings.PlayerType[state.CurrentColour] == 2) {
        return PromptForMove(state, settings);
    }
    if (state.MoveRecordCount == 0) return {"Sorteo de quién empieza", {}, false};
    return {"Juega " + name + "…", {}, false, state.CurrentColour};
}

QString LatestThrowText(const GameState& state, const Settings& settings) {
    if (state.MoveRecordCount < 2) return {};
    const Colour colour = ColourOnTurn(state.MoveRecords[state.MoveRecordCount - 1]);
    return NameText(settings, colour) + " " + SpokenLastThrow(state, settings, colour) + ".";
}

QString OutcomeText(const GameState& state, const Settings& settings, Colour colour) {
    if (colour == state.CurrentColour) return "¡Ganó la partida!";
    const Short home = state.PiecesHome[colour];
    const QString pieces = home == 0   ? QStringLiteral("sin fichas")
                           : home == 1 ? QStringLiteral("con 1 ficha")
                                       : QStringLiteral("con %1 fichas").arg(home);
    return QStringLiteral("%1.º puesto, ").arg(PlaceInGame(state, settings, colour)) + pieces +
           " en casa.";
}

QString CardText(const GameState& state, const Settings& settings, Colour colour) {
    if (HasWon(state)) return OutcomeText(state, settings, colour);
    if (state.WaitingForMove && colour == state.CurrentColour) {
        const bool isPrize = state.MoveCount == 10 || state.MoveCount == 20;
        return isPrize ? QStringLiteral("Premio de %1.").arg(state.MoveCount)
                       : QStringLiteral("Sacó %1.").arg(state.DieValue);
    }
    const QString spoken = SpokenLastThrow(state, settings, colour);
    return spoken.isEmpty() ? spoken : Capitalised(spoken) + ".";
}

Short CardDie(const GameState& state, Colour colour) {
    if (HasWon(state)) return 0;
    if (state.WaitingForMove && colour == state.CurrentColour) return state.DieValue;
    Short last = 0;
    const Short move = LastThrowOf(state, colour, last);
    return move < 1 ? Short{0} : state.MoveRecords[move].Die;
}

QString OthersText(const GameState& state, const Settings& settings) {
    QStringList others;
    for (const Colour colour : ByPlace(state, settings)) {
        if (colour != state.CurrentColour)
            others
                << QStringLiteral("%1 %2").arg(NameText(settings, colour)).arg(state.PiecesHome[colour]);
    }
    return others.isEmpty() ? QString() : "En casa: " + others.join(", ") + ".";
}

// From 21 on a level looks for safe squares and wins no more than its share; from 71 on a capture itself
// scores.
QString StrengthText(Short level) {
    if (level > 70) return "Juega fuerte";
    return level > 20 ? "Juega flojo" : "Juega regular";
}

QString KindText(const Settings& settings, Colour colour) {
    if (settings.PlayerType[colour] == 2) return "Persona";
    return QStringLiteral("Ordenador, nivel %1").arg(settings.PlayerLevel[colour]);
}

// ---------------------------------------------------------------------------- chances

QString OfHundredText(const engine::Estimate& chance) {
    const int games = qRound(100 * chance.value);
    if (chance.error > 0 && games < 1) return QStringLiteral("menos de 1");
    if (chance.error > 0 && games > 99) return QStringLiteral("más de 99");
    return QString::number(games);
}

QString ChanceText(const engine::Estimate& chance) {
    return OfHundredText(chance) + " de cada 100";
}

int MarginOfHundred(const engine::Estimate& estimate) {
    return qMax(1, qCeil(200 * estimate.error));
}

QString MoveChanceText(Colour colour, Square from, const engine::Estimate& chance) {
    const QString square =
        from <= LastRingSquare ? QStringLiteral("de la %1").arg(from) : From(colour, from);
    const QString move = from == 0 ? QStringLiteral("Si saca una ficha") : "Si mueve la ficha " + square;
    return move + ": gana " + ChanceText(chance) + " partidas";
}

}  // namespace zorva
