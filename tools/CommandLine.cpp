#include "tools/CommandLine.h"

#include <algorithm>
#include <charconv>
#include <thread>

#include "tools/Failure.h"

namespace zorva {
namespace {

bool IsOneOf(const std::string& option, std::initializer_list<std::string_view> known) {
    return std::find(known.begin(), known.end(), option) != known.end();
}

}  // namespace

CommandLine::CommandLine(const std::vector<std::string>& arguments,
                         std::initializer_list<std::string_view> valued,
                         std::initializer_list<std::string_view> plain) {
    for (std::size_t next = 1; next < arguments.size(); ++next) {
        const std::string& option = arguments[next];
        std::string value;
        if (IsOneOf(option, valued)) {
            // Whatever follows is the value, even if it looks
            // like an option: a file may have such a name.
            if (++next == arguments.size()) throw Failure(option + " needs a value");
            value = arguments[next];
        } else if (!IsOneOf(option, plain)) {
            throw Failure("unknown option \"" + option + "\" of " + arguments[0]);
        }
        if (!values_.emplace(option, value).second) throw Failure(option + " is given twice");
    }
}

const std::string& CommandLine::Text(const std::string& option) const {
    const auto found = values_.find(option);
    if (found == values_.end()) throw Failure(option + " is missing");
    return found->second;
}

std::uint64_t CommandLine::Number(const std::string& option, std::uint64_t low,
                                  std::uint64_t high) const {
    const std::string& text = Text(option);
    const auto number = WholeNumber(text);
    if (number && *number >= low && *number <= high) return *number;
    throw Failure(option + " takes a whole number from " + std::to_string(low) + " to " +
                  std::to_string(high) + ", not \"" + text + "\"");
}

unsigned ThreadsOf(const CommandLine& options) {
    constexpr unsigned most = 256;
    if (options.Has("--threads")) return static_cast<unsigned>(options.Number("--threads", 1, most));
    return std::clamp(std::thread::hardware_concurrency(), 1U, most);
}

std::optional<std::uint64_t> WholeNumber(std::string_view text) {
    // Unlike std::stoull, from_chars accepts neither a sign nor blanks, and depends on no locale.
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace zorva
