#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zorva {

/// The `analyse` command: the chances in the game of a settings file and, with --game, what each of its
/// records was worth. The output is the same for any number of threads. While games are played a line
/// on `progress` says how far it is; none when it is null.
void AnalyseCommand(const std::vector<std::string>& arguments, std::ostream& out,
                    std::ostream* progress);

}  // namespace zorva
