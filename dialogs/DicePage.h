#pragma once

#include <QWidget>

#include "app/Services.h"
#include "dialogs/DiceFacts.h"
#include "dialogs/GameReport.h"

namespace zorva {

/// The page about the dice of a game: how often each colour has thrown each face and sixes in a row,
/// each count on a band that holds what chance allows, and why the dice are fair. Screen readers find
/// all of it as the page's description.
class DicePage : public QWidget {
public:
    /// The services must outlive the page.
    DicePage(QWidget* window, const Services& services);

    void Show(const GameReport& report);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString JudgementText() const;
    QString ColourText(Colour colour) const;
    double ColumnWidth() const;
    QRectF Lane(std::size_t column, std::size_t row) const;
    void DrawHeads(QPainter& painter) const;
    void DrawLimits(QPainter& painter) const;
    void DrawRow(QPainter& painter, std::size_t row) const;
    void DrawCount(QPainter& painter, const DiceCount& count, const QRectF& lane) const;

    const Services& services_;
    Settings settings_;
    std::vector<Colour> colours_;
    PerColour<DiceOfColour> dice_{};
};

}  // namespace zorva
