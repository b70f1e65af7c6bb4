#pragma once

#include <QLineEdit>
#include <functional>

#include "app/Services.h"

namespace zorva {

/// What becomes of a text typed or pasted as a name: no blanks in front, the first letter as it was
/// typed, the second to the ninth in lower case. A double quote and characters that the settings file
/// cannot hold are left out.
QString NameFromTyped(const QString& typed);

/// The box in which a player's name is edited. It keeps the name to its form at every change.
class NameBox : public QLineEdit {
public:
    NameBox(QWidget* parent, const Services& services, const QString& objectName,
            const QString& accessibleName);

    /// The name was changed by the player.
    std::function<void(const QString& name)> Renamed;

    /// Shows a name without reporting it.
    void ShowName(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Txt_Nombre_Change();
    void FitLetters();

    const Services& services_;
};

}  // namespace zorva
