#pragma once

#include <QLineEdit>
#include <functional>

#include "app/Services.h"

namespace zorva {

/// The name that a typed or pasted text stands for: without blanks in front, cut after LongestName
/// characters, all but the first of them in lower case. Characters that a name cannot hold (see
/// CanStandInName) are left out. A name that went through here once stays as it is.
QString NameFromTyped(const QString& typed);

/// Txt_Nombre: the box in which a player's name is edited. It turns what is typed into a name at every
/// change and makes the font smaller where a wide name would not be seen whole. Left empty, it takes the
/// name of its colour. The arrows up and down and Enter move the focus; the keys for undo and redo step
/// through the names that the box has held.
class NameBox : public QLineEdit {
public:
    /// The box for the name of that colour's player. The services must outlive it.
    NameBox(QWidget* parent, const Services& services, Colour player);

    /// Called with the new name after each change, by the player or when the box was left empty.
    std::function<void(const QString& name)> Renamed;

    /// Shows a name without calling Renamed. What the box held before cannot be brought back.
    void ShowName(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void Txt_Nombre_Change();
    void Remember(const QString& name);
    void GoToName(qsizetype index);
    void FitFont();

    const Services& services_;
    const QString nameOfColour_;
    QStringList names_;    // each name that the box has held, in order
    qsizetype shown_ = 0;  // which of them it holds now; those after it were undone
};

}  // namespace zorva
