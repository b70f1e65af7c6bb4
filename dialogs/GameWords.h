#pragma once

#include <QString>
#include <vector>

#include "dialogs/GameReport.h"

namespace zorva {

// The Spanish sentences of the page about a whole game. They give chances, luck and costs as a number of
// games out of a hundred, rounded to whole games.

/// A moment of a game worth looking at.
struct ToldMoment {
    int record = 0;
    QString line;      ///< "52: Ana movió la de la 22; con la de la 30, 9 más"
    QString sentence;  ///< "Jugada 52: ... con la de la 30 ganaba 9 más de cada 100."
};

inline constexpr std::size_t MomentsTold = 3;

/// The throws that helped their throwers most and the choices that cost a person most, the greatest
/// first, MomentsTold at most. What is within its error, or is no whole game of a hundred, is not told.
std::vector<ToldMoment> LuckiestThrows(const GameReport& report);
std::vector<ToldMoment> CostliestChoices(const GameReport& report);
/// What stands in their place when there are none.
QString NoLuckText(const GameReport& report);
QString NoCostsText(const GameReport& report);

/// The colours that take part; none before there is a game.
std::vector<Colour> ColoursOf(const GameReport& report);
/// Whether a person plays any of them, or this one.
bool HasPersons(const GameReport& report);
bool IsPerson(const GameReport& report, Colour colour);

/// The number of records, those that are not analysed yet included.
int RecordsOf(const GameReport& report);
/// Whether the chances after that record are known. 0 is the start of the game.
bool IsAnalysed(const GameReport& report, int record);
engine::Estimate ChanceAfter(const GameReport& report, int record, Colour colour);

/// "Jugada 37", "Al empezar".
QString RecordText(int record);
/// "Jugada 37: Ana gana 41 de cada 100 partidas; Pepe, 30; ..."
QString ChancesText(const GameReport& report, int record);

/// A sum over a game: "+31, más o menos 4".
QString LuckText(const engine::Estimate& luck);
/// "12, más o menos 3".
QString CostText(const engine::Estimate& cost);
/// Both for one colour: "Ana: suerte +31, más o menos 4; perdido al elegir: 12, más o menos 3."
QString SumsText(const GameReport& report, Colour colour);

}  // namespace zorva
