#pragma once

#include <QWidget>
#include <functional>

#include "app/Services.h"
#include "dialogs/GameReport.h"

namespace zorva {

class GamePage : public QWidget {
public:
    GamePage(QWidget* window, const Services&) : QWidget(window) {}

    void Show(const GameReport&) {}

    std::function<void(int record)> GoTo;
};

}  // namespace zorva
