#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zorva {

/// Answers the options that the program was started with; `arguments` are those after its name. Returns
/// the exit status when the program is to end at once: 0 after --help or --version, 2 after a line on
/// standard error about an option that is unknown. Needs no display.
std::optional<int> AnswerOptions(const std::vector<std::string>& arguments);

}  // namespace zorva
