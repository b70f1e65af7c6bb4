#include "app/StartOptions.h"

#include <iostream>

namespace zorva {
namespace {

constexpr const char* usage =
    "Uso: zorva32 [--help | --version]\n"
    "Parchís a pantalla completa o, con F11, en una ventana. Todo lo demás se elige dentro del "
    "programa.\n"
    "  --help     muestra esta ayuda\n"
    "  --version  muestra la versión\n";

int Print(const std::string& text) {
    return (std::cout << text).flush() ? 0 : 1;
}

}  // namespace

std::optional<int> AnswerOptions(const std::vector<std::string>& arguments) {
    if (arguments.empty()) return {};
    const std::string& option = arguments[0];
    if (arguments.size() == 1 && option == "--help") return Print(usage);
    if (arguments.size() == 1 && option == "--version") return Print("zorva32 " ZORVA_VERSION "\n");
    // Qt takes it: so a desktop starts again what was open when its session ended.
    if (arguments.size() == 2 && option == "-session") return {};
    std::cerr << "zorva32: opción desconocida: «" << option << "». Pruebe «zorva32 --help».\n";
    return 2;
}

}  // namespace zorva
