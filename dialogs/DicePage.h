#pragma once

#include <QWidget>
#include <functional>

#include "app/Services.h"
#include "dialogs/GameReport.h"

namespace zorva {

class DicePage : public QWidget {
public:
    DicePage(QWidget* window, const Services&) : QWidget(window) {}

    void Show(const GameReport&) {}
};

}  // namespace zorva
