#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorva {

/// The options of one command. Each may be given once; there are no other arguments and no
/// abbreviations. Every mistake in them is thrown as a Failure whose message names the option.
class CommandLine {
public:
    /// Reads the arguments that follow the command's name, arguments[0]. Options in `valued` are
    /// followed by a value, those in `plain` are not.
    CommandLine(const std::vector<std::string>& arguments,
                std::initializer_list<std::string_view> valued,
                std::initializer_list<std::string_view> plain);

    bool Has(const std::string& option) const { return values_.contains(option); }
    /// The value of an option. Fails if the option is missing.
    const std::string& Text(const std::string& option) const;
    /// The value as a whole number from `low` to `high`. Fails if it is anything else.
    std::uint64_t Number(const std::string& option, std::uint64_t low, std::uint64_t high) const;

private:
    std::map<std::string, std::string> values_;  // by option; those in `plain` have an empty value
};

/// The threads of --threads, 1 to 256; without that option one for each processor.
unsigned ThreadsOf(const CommandLine& options);

/// The text as a whole number, or nothing if it is not made of digits alone or needs more than 64 bits.
std::optional<std::uint64_t> WholeNumber(std::string_view text);

}  // namespace zorva
