#pragma once

#include <QAbstractButton>
#include <functional>

#include "app/Services.h"
#include "dialogs/HistoricPages.h"
#include "store/HistoryFile.h"

namespace zorva {

/// What the keyboard and a screen reader see of a corner by which the sheet is turned. The mouse goes
/// through it to the sheet.
class PageCorner : public QAbstractButton {
public:
    PageCorner(QWidget* sheet, const Services& services, const char* objectName, const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Services& services_;
};

/// Pic_Carpeta: the ruled sheet in the folder, with eight games and the two corners that turn it.
class HistoricSheet : public QWidget {
public:
    static constexpr Short Width = 350;
    static constexpr Short Height = 302;

    /// The history must outlive the sheet.
    HistoricSheet(QWidget* window, const Services& services, const History& history);

    const HistoricPages& Pages() const { return pages_; }

    /// The sheet has been turned.
    std::function<void()> Turned;

    /// Turns the sheet if there is a page on that side; else nothing happens.
    void TurnOlder();
    void TurnNewer();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    PageCorner* AddCorner(const char* objectName, const QString& name, const Box& box,
                          void (HistoricSheet::*turn)());
    void Turn(void (HistoricPages::*turn)());
    void PageChanged();
    void DrawRuling(QPainter& painter) const;
    void DrawHeading(QPainter& painter) const;
    void DrawRecord(QPainter& painter, long index, double top) const;
    void DrawCorners(QPainter& painter) const;

    const Services& services_;
    const History& lisDatos_;  // Lis_Datos: the records, never shown as they are
    HistoricPages pages_;
    PageCorner* older_;  // owned by the sheet, as the other corner
    PageCorner* newer_;
};

}  // namespace zorva
