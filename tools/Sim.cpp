#include "tools/Sim.h"

#include <algorithm>
#include <ostream>

#include "tools/AnalyseCommand.h"
#include "tools/DiceCommand.h"
#include "tools/Failure.h"
#include "tools/MatchCommand.h"
#include "tools/PlayCommand.h"

namespace zorva {
namespace {

// Printed by --help. Lines of at most 100 characters.
constexpr const char* usage =
    "zorva-sim plays games of the computer without a window. --version prints its version.\n"
    "\n"
    "zorva-sim play --settings IN.INI --first C --dice FILE [--log] [--records]\n"
    "               [--save OUT.INI [--keep-won]]\n"
    "    One game with the throws of FILE (1..6, white space between them), begun by colour C\n"
    "    (1 yellow, 2 blue, 3 red, 4 green). Prints how it stands when it ends or the throws do.\n"
    "    --log      prints each line of the move log\n"
    "    --records  prints the eleven fields of each move record\n"
    "    --save     writes the settings file of that moment\n"
    "    --keep-won with it a game that was won stays in the file, to be analysed\n"
    "\n"
    "zorva-sim match --games N --seed S [--threads T] [--settings IN.INI] [--levels A,B,C,D]\n"
    "                [--players A,B,C,D] [--rules A,B,C,D] [--order O] [--thinker C,N]\n"
    "    N games by chance, on all cores unless T says otherwise. Prints wins and mean points. The\n"
    "    same seed gives the same games with any number of threads. Each game draws the colour\n"
    "    that begins among those taking part, all equally likely. A, B, C, D are the levels of\n"
    "    yellow, blue, red and green.\n"
    "    --players  1 for each of the four that takes part, 2 for each that does not\n"
    "    --rules    1 or 2 for each option: a six with none in the box counts 7 or 12; with all in the\n"
    "               box counting starts at once or after a five; a five with all in the box brings out\n"
    "               two or one; a five with some in the box must bring one out or may\n"
    "    --thinker  C,N: colour C makes the move after which it wins most of N games played on\n"
    "    --order    1 the turn goes from green down to yellow, 2 from yellow up to green\n"
    "    --by-the-book  plays the same games with the code of the window's games, which defines the\n"
    "               rules: the same totals, slower\n"
    "\n"
    "zorva-sim match --from IN.INI --games N [--seed S] [--threads T] [--die FACE] [--by-the-book]\n"
    "    N games played on from the game in IN.INI, with dice of seed S (1); a person counts as a\n"
    "    computer of level 100. Prints who won how often: wins COLOUR COUNT.\n"
    "    --die      the face of the first throw\n"
    "\n"
    "zorva-sim analyse --settings IN.INI [--die FACE] [--game] [--playouts N] [--seed S] [--threads T]\n"
    "    The chances in the game of IN.INI, found by playing it on N times (2000) with dice of seed S\n"
    "    (1); a person counts as a computer of level 100. A colour is 1 to 4, a chance 0 to 1, and an\n"
    "    error the standard error of the number before it.\n"
    "        win COLOUR CHANCE ERROR\n"
    "        move PIECE FROM TO CHANCE ERROR         for each legal move if one is due; 0 is the box\n"
    "    --die      the face that was thrown\n"
    "    --game     first tells of all moves so far, with N games played on for each record:\n"
    "        record N COLOUR DIE CHANCE1 CHANCE2 CHANCE3 CHANCE4 LUCK CHOICE COST\n"
    "        luck COLOUR SUM ERROR                   of the colour's own throws; choice and cost alike\n"
    "        sum COLOUR START LUCK CHOICE SHIFT END  of everybody's throws, choices and displacements\n"
    "    docs/chances.md says what these mean.\n"
    "\n"
    "zorva-sim dice --throws N (--seed S | --system)\n"
    "    N throws of the die, counted: faces, pairs, sixes in a row, faces of each colour. Each count\n"
    "    stands beside the band that a fair die keeps to in 99 of 100 cases, each table ends with its\n"
    "    chi-square. S begins a series that is the same everywhere; --system takes the generator of\n"
    "    the operating system, as the window does.\n"
    "\n"
    "Colours are played by the computer whatever the settings file says.\n";

bool AsksForHelp(const std::string& argument) {
    return argument == "--help" || argument == "-h";
}

// `progress` is null when no progress is wanted.
void Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream* progress) {
    if (arguments.empty())
        throw Failure("a command is missing: play, match, analyse or dice, or --help");
    if (arguments.size() <= 2 && AsksForHelp(arguments.back())) {
        out << usage;
        return;
    }
    if (arguments[0] == "play") return PlayCommand(arguments, out);
    if (arguments[0] == "match") return MatchCommand(arguments, out, progress);
    if (arguments[0] == "analyse") return AnalyseCommand(arguments, out, progress);
    if (arguments[0] == "dice") return DiceCommand(arguments, out);
    if (arguments[0] != "--version") throw Failure("unknown command \"" + arguments[0] + "\"");
    out << "zorva-sim " ZORVA_VERSION "\n";
}

// Messages quote arguments and files. Control characters in them become blanks, so that each message
// stays one line and cannot steer the terminal.
std::string OnOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char letter) { return letter < 0x20 || letter == 0x7f; },
        ' ');
    return text;
}

}  // namespace

int RunSim(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
           bool showProgress) {
    try {
        Run(arguments, out, showProgress ? &err : nullptr);
        // A full disk, or a pipe whose reader has gone, shows only when the buffer is written.
        if (!out.flush()) throw Failure("cannot write the output");
        return 0;
    } catch (const Failure& failure) {
        err << "zorva-sim: " << OnOneLine(failure.what()) << '\n';
        return 2;
    }
}

}  // namespace zorva
