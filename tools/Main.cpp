#include <unistd.h>

#include <iostream>

#include "tools/Sim.h"

// The progress of a match is for somebody who watches: it would only clutter a log file.
int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return zorva::RunSim(arguments, std::cout, std::cerr, isatty(STDERR_FILENO) != 0);
}
