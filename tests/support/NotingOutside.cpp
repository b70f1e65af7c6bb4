#include "tests/support/NotingOutside.h"

#include <algorithm>

#include "core/Records.h"

namespace zorva::test {

Notes NotingOutside::Only(std::initializer_list<std::string> words) const {
    Notes wanted;
    for (const std::string& note : notes_) {
        const std::string word = note.substr(0, note.find(' '));
        if (std::find(words.begin(), words.end(), word) != words.end()) wanted.push_back(note);
    }
    return wanted;
}

void NotingOutside::WaitForInput() {
    Require(!inputs.empty(), "the game waits for a person without end");
    inputs.front()(state_);
    inputs.pop_front();
}

void NotingOutside::PositionReached(const GameState& position) {
    kept = position;
    if (position.ThrowNext && throws_.empty()) state_.GameInProgress = No;
}

void NotingOutside::DrawDie(Colour colour, Short face, DieIs how) {
    static constexpr const char* words[] = {"ready", "rolls", "thrown", "rests"};
    Note("die", {colour, face});
    notes_.back().append(1, ' ').append(words[static_cast<int>(how)]);
}

void NotingOutside::ShowTurn(Colour colour, TurnIs why) {
    static constexpr const char* words[] = {"draw", "throws", "capture", "arrival",
                                            "tape", "won",    "over"};
    Note("turn", {colour});
    notes_.back().append(1, ' ').append(words[static_cast<int>(why)]);
}

void NotingOutside::AddLogLine(Short moveNumber, const MoveRecord& record) {
    notes_.push_back("log " + LogLineText(moveNumber, record));
}

MessageAnswer NotingOutside::ShowMessage(std::string_view title, std::string_view text, Short lineCount,
                                         MessageButtons buttons) {
    notes_.push_back("message " + std::string(title) + "|" + std::string(text) + "|" +
                     std::to_string(lineCount) + (buttons == MessageButtons::YesNo ? " yes/no" : ""));
    if (abandonsInMessage) state_.GameInProgress = No;
    return answer;
}

Short NotingOutside::NextThrow() {
    Require(!throws_.empty(), "a test's script has too few throws");
    Require(!throwIsOffered_, "the cursor still offers the throw that is made");
    const Short face = throws_.front();
    throws_.pop_front();
    return face;
}

void NotingOutside::Note(const char* what, std::initializer_list<int> numbers) {
    std::string note = what;
    for (const int number : numbers) note.append(1, ' ').append(std::to_string(number));
    notes_.push_back(note);
}

}  // namespace zorva::test
