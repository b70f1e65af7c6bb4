#include "dialogs/Options.h"

namespace zorva {
namespace {

constexpr int optionCount = static_cast<int>(LastOption);

// The index of both tables is the option's number; row 0 is not used.
constexpr const char* questions[optionCount + 1] = {
    "",
    "Pausa entre jugadas",
    "Tutor de juego",
    "Sentido del juego",
    "Sonido",
    "Si se saca 6 cuando están las cuatro fichas fuera",
    "Tipo de juego",
    "Estado del jugador",
    "Información botones",
    "Cómo se sale si están las 4 fichas en cuadro de espera",
    "Si hay 4 fichas en cuadro de espera y saca un cinco",
    "Si saca cinco y hay alguna ficha en cuadro de espera",
};

// Each answer agrees in gender with its question.
constexpr const char* answers[optionCount + 1][2] = {
    {"", ""},
    {"Activada", "Desactivada"},
    {"Activado", "Desactivado"},
    {"Directo", "Inverso"},
    {"Activado", "Desactivado"},
    {"Se cuenta siete", "Se cuenta doce"},
    {"Automático", "Manual"},
    {"Activado", "Desactivado"},
    {"Activada", "Desactivada"},
    {"Se empieza contando en la primera tirada", "Es necesario sacar un cinco para salir"},
    {"Saca dos fichas a la casilla de salida", "Sale contando cinco con una ficha"},
    {"Es obligatorio sacar una ficha", "Puede sacar ficha o jugar cualquier otra"},
};

// One table for both functions below: const settings give a const field.
template <typename AnySettings>
auto& FieldOf(AnySettings& settings, Option option, Colour player) {
    switch (option) {
        case Option::PauseBetweenMoves: return settings.PauseBetweenMoves;
        case Option::Tutor: return settings.Tutor;
        case Option::PlayOrder: return settings.PlayOrder;
        case Option::Sound: return settings.SoundOn;
        case Option::RuleSixAllOut: return settings.RuleSixAllOut;
        case Option::PlayerType: return settings.PlayerType[player];
        case Option::PlayerState: return settings.PlayerActive[player];
        case Option::ButtonInfo: return settings.ButtonInfo;
        case Option::RuleLeaveAllInBox: return settings.RuleLeaveAllInBox;
        case Option::RuleFiveAllInBox: return settings.RuleFiveAllInBox;
        case Option::RuleFiveSomeInBox: return settings.RuleFiveSomeInBox;
    }
    Fatal("an option that the settings do not have");
}

}  // namespace

QString QuestionText(Option option) {
    return QString::fromUtf8(questions[static_cast<Short>(option)]);
}

QString AnswerText(Option option, Short value) {
    Require(value == 1 || value == 2, "an option has two answers");
    return QString::fromUtf8(answers[static_cast<Short>(option)][value - 1]);
}

Short& OptionField(Settings& settings, Option option, Colour player) {
    return FieldOf(settings, option, player);
}

Short OptionField(const Settings& settings, Option option, Colour player) {
    return FieldOf(settings, option, player);
}

}  // namespace zorva
