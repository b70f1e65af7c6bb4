#include "dialogs/GameWords.h"

#include <QStringList>
#include <algorithm>
#include <functional>

#include "app/Sentences.h"

namespace zorva {
namespace {

using engine::Estimate;
using engine::RecordWorth;

int OfHundred(double chance) {
    return qRound(100 * chance);
}

const engine::SeatWorth& SumsOf(const GameReport& report, Colour colour) {
    return report.sums[engine::SeatOf(colour)];
}

const MoveRecord& RecordOf(const GameReport& report, int record) {
    return report.game.MoveRecords[static_cast<std::size_t>(record)];
}

QString WithMargin(const QString& sum, const Estimate& estimate) {
    if (estimate.error == 0) return sum;
    return sum + QStringLiteral(", más o menos %1").arg(MarginOfHundred(estimate));
}

// The records with the greatest values, the greatest first.
std::vector<int> Greatest(const GameReport& report,
                          const std::function<Estimate(const RecordWorth&)>& valueOf) {
    const auto value = [&](int record) {
        return valueOf(report.worths[static_cast<std::size_t>(record) - 1]);
    };
    std::vector<int> records;
    for (int record = 1; IsAnalysed(report, record); ++record) {
        const Estimate estimate = value(record);
        if (OfHundred(estimate.value) >= 1 && estimate.value > 2 * estimate.error)
            records.push_back(record);
    }
    std::stable_sort(records.begin(), records.end(),
                     [&](int one, int other) { return value(one).value > value(other).value; });
    records.resize(std::min(records.size(), MomentsTold));
    return records;
}

// What happened, and how its line and its sentence end.
ToldMoment MomentOf(int record, const QString& what, const QString& lineEnd,
                    const QString& sentenceEnd) {
    const QString line = QString::number(record) + ": " + what;
    return {record, line + lineEnd, "Jugada " + line + sentenceEnd + " de cada 100."};
}

ToldMoment ThrowMoment(const GameReport& report, int record) {
    const MoveRecord& move = RecordOf(report, record);
    const double before = ChanceAfter(report, record - 1, move.MoverColour).value;
    const double after = before + report.worths[static_cast<std::size_t>(record) - 1].luck.value;
    const QString what = QStringLiteral("%1 sacó %2 y subió de %3 a %4")
                             .arg(NameText(report.settings, move.MoverColour))
                             .arg(move.Die)
                             .arg(OfHundred(before))
                             .arg(std::min(OfHundred(after), 100));
    return MomentOf(record, what, "", "");
}

bool IsInColumn(Square square) {
    return square > LastRingSquare;
}

// "la de la 22", "la de su columna"; not for the waiting box.
QString PieceFrom(Square square) {
    return IsInColumn(square) ? "la de su columna" : QStringLiteral("la de la %1").arg(square);
}

ToldMoment ChoiceMoment(const GameReport& report, int record) {
    const MoveRecord& move = RecordOf(report, record);
    const RecordWorth& worth = report.worths[static_cast<std::size_t>(record) - 1];
    const QString made = move.From == 0 ? "sacó una ficha" : "movió " + PieceFrom(move.From);
    const bool isOther = IsInColumn(move.From) && IsInColumn(worth.better);
    const QString better = worth.better == 0 ? "sacando una ficha"
                           : isOther         ? "con la otra"
                                             : "con " + PieceFrom(worth.better);
    const QString what = NameText(report.settings, move.MoverColour) + " " + made + "; " + better;
    const QString more = QStringLiteral("%1 más").arg(OfHundred(worth.cost.value));
    return MomentOf(record, what, ", " + more, " ganaba " + more);
}

std::vector<ToldMoment> Told(const GameReport& report, const std::vector<int>& records,
                             ToldMoment (*tell)(const GameReport&, int)) {
    std::vector<ToldMoment> moments;
    moments.reserve(records.size());
    for (const int record : records) moments.push_back(tell(report, record));
    return moments;
}

}  // namespace

std::vector<ToldMoment> LuckiestThrows(const GameReport& report) {
    return Told(report, Greatest(report, [](const RecordWorth& worth) { return worth.luck; }),
                ThrowMoment);
}

std::vector<ToldMoment> CostliestChoices(const GameReport& report) {
    return Told(report, Greatest(report, [](const RecordWorth& worth) { return worth.cost; }),
                ChoiceMoment);
}

QString NoLuckText(const GameReport& report) {
    return report.progress < 1 ? "De momento, ninguna." : "Ninguna.";
}

QString NoCostsText(const GameReport& report) {
    if (!HasPersons(report)) return "Juegan solo ordenadores.";
    return report.progress < 1 ? NoLuckText(report) : "Ninguna: muy bien elegido.";
}

std::vector<Colour> ColoursOf(const GameReport& report) {
    return report.game.MoveRecordCount != 0 ? ColoursTakingPart(report.settings) : std::vector<Colour>();
}

bool HasPersons(const GameReport& report) {
    const std::vector<Colour> colours = ColoursOf(report);
    return std::any_of(colours.begin(), colours.end(),
                       [&](Colour colour) { return IsPerson(report, colour); });
}

bool IsPerson(const GameReport& report, Colour colour) {
    return report.settings.PlayerType[colour] == 2;
}

int RecordsOf(const GameReport& report) {
    return std::max(0, report.game.MoveRecordCount - 1);
}

bool IsAnalysed(const GameReport& report, int record) {
    return !report.worths.empty() && record <= static_cast<int>(report.worths.size());
}

Estimate ChanceAfter(const GameReport& report, int record, Colour colour) {
    if (record == 0) return SumsOf(report, colour).start;
    return report.worths[static_cast<std::size_t>(record) - 1].chances[engine::SeatOf(colour)];
}

QString RecordText(int record) {
    return record == 0 ? "Al empezar" : QStringLiteral("Jugada %1").arg(record);
}

QString ChancesText(const GameReport& report, int record) {
    if (RecordsOf(report) == 0) return "Todavía no hay jugadas.";
    if (!IsAnalysed(report, record)) return RecordText(record) + ": sin calcular todavía.";
    QStringList chances;
    for (const Colour colour : ColoursOf(report)) {
        const QString games = OfHundredText(ChanceAfter(report, record, colour));
        const QString name = PlayerText(report.settings, colour);
        chances << (chances.isEmpty() ? name + " gana " + games + " de cada 100 partidas"
                                      : name + ", " + games);
    }
    return RecordText(record) + ": " + chances.join("; ") + ".";
}

QString LuckText(const Estimate& luck) {
    const int games = OfHundred(luck.value);
    const QString sign = games > 0 ? "+" : games < 0 ? "−" : "";
    return WithMargin(sign + QString::number(std::abs(games)), luck);
}

QString CostText(const Estimate& cost) {
    return OfHundred(cost.value) == 0 ? "nada"
                                      : WithMargin(QString::number(OfHundred(cost.value)), cost);
}

QString SumsText(const GameReport& report, Colour colour) {
    const auto& own = SumsOf(report, colour).own;
    const QString luck = PlayerText(report.settings, colour) + ": suerte " + LuckText(own.luck);
    return IsPerson(report, colour) ? luck + "; perdido al elegir: " + CostText(own.cost) + "."
                                    : luck + ".";
}

}  // namespace zorva
