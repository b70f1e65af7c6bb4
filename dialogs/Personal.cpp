#include "dialogs/Personal.h"

#include <QKeyEvent>
#include <algorithm>

#include "dialogs/PictureButton.h"
#include "dialogs/RulesPage.h"
#include "dialogs/SettingsPage.h"
#include "dialogs/mensajes.h"

namespace zorva {
namespace {

constexpr const char* title = "Personalizar la aplicación";

// In layout pixels.
constexpr QSize windowSize(624, 424);
constexpr Box rulesButton{17, 380, 156, 30};
constexpr Box leaveButton{511, 380, 96, 30};

}  // namespace

Personal::Personal(QWidget* parent, const Services& services, Settings& settings, bool gameInProgress,
                   PersonalHooks hooks)
    : BoardDialog(parent, services, "Personal", title, windowSize),
      settings_(settings),
      gameInProgress_(gameInProgress),
      hooks_(std::move(hooks)),
      settingsPage_(new SettingsPage(this, TheServices(), settings)),
      rulesPage_(new RulesPage(this, TheServices(), settings)) {
    ConnectPages();
    AddButtons();
    ShowRules(false);
}

// The buttons are children of their pages: they are hidden with them, and Tab reaches them after the
// options.
void Personal::AddButtons() {
    auto* rules = new PictureButton(settingsPage_, TheServices(), "Bot_Normas", "personal_rules",
                                    "Normas de juego");
    Place(rules, rulesButton);
    connect(rules, &QAbstractButton::clicked, this, [this] { TurnTo(true); });
    auto* leave = new PictureButton(settingsPage_, TheServices(), "Pic_Salir", "accept", "Aceptar");
    Place(leave, leaveButton);
    connect(leave, &QAbstractButton::clicked, this, [this] { Leave(); });
    auto* back =
        new PictureButton(rulesPage_, TheServices(), "Pic_SalirNormas", "personal_back", "Volver");
    Place(back, leaveButton);
    connect(back, &QAbstractButton::clicked, this, [this] { TurnTo(false); });
}

// Names, levels and the speed show themselves where they are edited: no page has to be drawn again.
void Personal::ConnectPages() {
    const auto chosen = [this](Option option, Colour player) { OptionChosen(option, player); };
    settingsPage_->Chosen = chosen;
    rulesPage_->Chosen = chosen;
    settingsPage_->Renamed = [this](Colour player, const QString& name) {
        settings_.PlayerName[player] = name.toStdString();
        if (hooks_.Applied) hooks_.Applied();
    };
    settingsPage_->LevelSet = [this](Colour player, Short level) {
        settings_.PlayerLevel[player] = level;
        if (hooks_.Applied) hooks_.Applied();
    };
    settingsPage_->SpeedSet = [this](Short speed) {
        settings_.Speed = speed;
        if (hooks_.Applied) hooks_.Applied();
    };
}

// The focus goes to the first option of the page, because the control that had it is hidden now.
void Personal::ShowRules(bool rules) {
    settingsPage_->setVisible(!rules);
    rulesPage_->setVisible(rules);
    QWidget* first = rules ? rulesPage_->StopOf(Option::RuleLeaveAllInBox)
                           : settingsPage_->StopOf(Option::PlayerState, 1);
    first->setFocus();
}

void Personal::TurnTo(bool rules) {
    TheServices().Say(rules ? "Normas de juego." : title + QStringLiteral("."));
    ShowRules(rules);
}

// Every option has two answers, so a choice is a flip.
void Personal::OptionChosen(Option option, Colour player) {
    const QString refusal = RefusalOf(option);
    if (!refusal.isEmpty()) {
        ShowMessage(this, TheServices(), "Selección improcedente", refusal, 3,
                    MessageButtons::Acknowledge);
        return;
    }
    Short& field = OptionField(settings_, option, player);
    field = field == 1 ? 2 : 1;
    Changed();
    TheServices().Say(AnswerText(option, field));
}

// The order of play and the number of players shape the game that is being played; rules apply from the
// next throw on, and everything else does not touch the game. The doubled blanks belong to the text.
QString Personal::RefusalOf(Option option) const {
    if (!gameInProgress_) return {};
    if (option == Option::PlayOrder) {
        return "No se puede cambiar el Sentido del juego una vez que ha comenzado la partida. Cuando "
               "finalice esta partida, podrá realizar dicho cambio.";
    }
    if (option == Option::PlayerState) {
        return "No se puede activar  o  desactivar a un jugador durante el desarrollo  de  una  "
               "partida.  Cuando  finalice  esta  partida, podrá realizar dicho cambio.";
    }
    return {};
}

// An answer may show or hide other options, on the other page, too.
void Personal::Changed() {
    settingsPage_->ShowSettings();
    rulesPage_->ShowSettings();
    if (hooks_.Applied) hooks_.Applied();
}

// From the rules Escape leads back to the first page; only there it leaves the window.
void Personal::KeyPressed(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && rulesPage_->isVisible()) {
        TurnTo(false);
    } else {
        BoardDialog::KeyPressed(event);
        settingsPage_->ShowSettings();  // F12 may have switched the sound, here or over the manual
    }
}

// The button sounds at every press, even when the player may not leave the window. A name box that
// Escape or the window manager leaves empty loses the focus before the settings are saved, and so gets a
// name.
void Personal::Leave() {
    TheServices().PlaySound(Sound::Accept);
    const auto& active = settings_.PlayerActive;
    if (std::all_of(active.begin() + 1, active.end(), [](Short state) { return state == 2; })) {
        ShowMessage(this, TheServices(), "Datos incorrectos",
                    "No puede jugar si deja desactivados los 4 jugadores. Active al menos 1 jugador.", 2,
                    MessageButtons::Acknowledge);
        return;
    }
    if (focusWidget()) focusWidget()->clearFocus();
    if (hooks_.Save) hooks_.Save();
    accept();
}

void ShowPersonal(QWidget* parent, const Services& services, Settings& settings, bool gameInProgress,
                  PersonalHooks hooks) {
    Personal window(parent, services, settings, gameInProgress, std::move(hooks));
    RunModal(window);
}

}  // namespace zorva
