#pragma once

#include <QAbstractButton>
#include <functional>

#include "app/Services.h"
#include "dialogs/HistoricPages.h"
#include "store/HistoryFile.h"

namespace zorva {

/// What the keyboard and screen readers find of a corner that turns the sheet. It draws only the mark of
/// the focus; the sheet draws the corner and gets its clicks.
class PageCorner : public QAbstractButton {
public:
    PageCorner(QWidget* sheet, const Services& services, const char* objectName, const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Services& services_;
};

/// Pic_Carpeta: the ruled sheet in the folder, with eight games and the two corners that turn it. Screen
/// readers find the whole page as its description, one line a game.
class HistoricSheet : public QWidget {
public:
    /// Its size in layout pixels.
    static constexpr Short Width = 350;
    static constexpr Short Height = 302;

    /// The services and the history must outlive the sheet.
    HistoricSheet(QWidget* window, const Services& services, const History& history);

    const HistoricPages& Pages() const { return pages_; }

    /// Says the page to a player who does not see it. The sheet does so itself when it is turned.
    void Say() const;

    /// Called after the sheet was turned.
    std::function<void()> Turned;

    /// Turn the sheet, with a sound and a short pause before. When there is no page on that side,
    /// nothing happens.
    void TurnOlder();
    void TurnNewer();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    PageCorner* AddCorner(const char* objectName, const QString& name, const Box& box,
                          void (HistoricSheet::*turn)());
    void Turn(void (HistoricPages::*turn)());
    void PageChanged();
    QString PageText() const;
    QString GameText(long index) const;
    void DrawRuling(QPainter& painter) const;
    void DrawHeading(QPainter& painter) const;
    void DrawRecord(QPainter& painter, long index, double top) const;
    const PageCorner* CornerAt(Point point) const;
    void Light(const PageCorner* corner);
    void DrawCorners(QPainter& painter) const;

    const Services& services_;
    const History& lisDatos_;  // Lis_Datos: the records of the file, decoded only to be shown
    HistoricPages pages_;
    PageCorner* older_;  // owned by the sheet, as the other corner
    PageCorner* newer_;
    const PageCorner* lit_ = nullptr;  // the one that the cursor is over
};

}  // namespace zorva
