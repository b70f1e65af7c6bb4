#include "app/BoardReading.h"

#include <QStringList>

#include "core/Board.h"
#include "core/Records.h"

namespace zorva {
namespace {

QString PlaceText(Colour colour, Square square) {
    if (square == 0) return "en el cuadro de espera";
    if (square == GoalSquare[colour]) return "en la meta";
    if (square > LastRingSquare) {
        return QStringLiteral("columna, casilla %1").arg(square - FirstColumnSquare[colour] + 1);
    }
    return QStringLiteral("casilla %1").arg(square);
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

}  // namespace

QString PlayerText(const Settings& settings, Colour colour) {
    const QString name = QString::fromStdString(Trimmed(settings.PlayerName[colour]));
    const QString colourName = QString::fromStdString(DefaultName(colour));
    return name == colourName ? name : name + " (" + colourName + ")";
}

QString PieceText(const GameState& state, const Settings& settings, PieceCode code) {
    const Colour colour = ColourOf(code);
    return QStringLiteral("Ficha %1 de %2, %3")
        .arg(PieceOf(code))
        .arg(PlayerText(settings, colour), PlaceText(colour, state.PositionOf(code)));
}

QString SquareText(const GameState& state, const Settings& settings, Square square) {
    QStringList pieces;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            if (state.PiecePosition[colour][piece] != square) continue;
            pieces << QStringLiteral("ficha %1 de %2").arg(piece).arg(PlayerText(settings, colour));
        }
    }
    const QString safe = IsSafeSquare(square) ? QStringLiteral(", segura") : QString();
    return SquareName(square) + safe + ": " + (pieces.isEmpty() ? "libre" : pieces.join(", "));
}

QString DieText(const Settings& settings, Colour colour, Short face, bool ready) {
    const QString shows = face == 0 ? QStringLiteral("vacío")
                          : ready   ? QStringLiteral("listo para tirar")
                                    : QString::number(face);
    return QStringLiteral("Dado de %1: %2").arg(PlayerText(settings, colour), shows);
}

QString MoveText(const Settings& settings, const MoveRecord& record) {
    const QString player = PlayerText(settings, record.MoverColour);
    if (!MovesAPiece(record)) return player + " pasa";
    const QString to = PlaceText(record.MoverColour, record.To);
    if (record.To == 0)
        return QStringLiteral("La ficha %1 de %2 vuelve a espera").arg(record.Piece).arg(player);
    if (record.Manual) {
        return QStringLiteral("La ficha %1 de %2 se coloca a mano: %3")
            .arg(record.Piece)
            .arg(player, to);
    }
    return QStringLiteral("%1 cuenta %2 con la ficha %3: %4")
        .arg(player)
        .arg(record.Count)
        .arg(record.Piece)
        .arg(to);
}

QString TurnText(const GameState& state, const Settings& settings) {
    if (!state.GameInProgress) return "No hay ninguna partida en curso";
    const QString player = PlayerText(settings, state.CurrentColour);
    if (state.WaitingForThrow) return "Turno de " + player + ": puede tirar el dado";
    if (state.WaitingForMove) {
        return QStringLiteral("%1 ha sacado %2: elija una ficha").arg(player).arg(state.DieValue);
    }
    return "Turno de " + player;
}

}  // namespace zorva
