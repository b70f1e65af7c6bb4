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
/// change and makes the font smaller where a wide name would not be seen whole. The arrows up and down
/// and Enter move the focus.
class NameBox : public QLineEdit {
public:
    /// The services must outlive the box.
    NameBox(QWidget* parent, const Services& services, const QString& objectName,
            const QString& accessibleName);

    /// Called with the new name after each change by the player.
    std::function<void(const QString& name)> Renamed;

    /// Shows a name without calling Renamed.
    void ShowName(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Txt_Nombre_Change();
    void FitFont();

    const Services& services_;
};

}  // namespace zorva
