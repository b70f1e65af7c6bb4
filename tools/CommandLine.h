#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorva {

/// The options of one command, each given once at most and nothing else. Whatever is wrong with
/// them is thrown as a Failure.
class CommandLine {
public:
    /// Reads arguments from the one after the command's name. `valued` are the options that take a
    /// value, `plain` those that do not.
    CommandLine(const std::vector<std::string>& arguments,
                std::initializer_list<std::string_view> valued,
                std::initializer_list<std::string_view> plain);

    bool Has(const std::string& option) const { return values_.contains(option); }
    /// The value of an option that must be there.
    const std::string& Text(const std::string& option) const;
    /// The value as a whole number from low to high.
    std::uint64_t Number(const std::string& option, std::uint64_t low, std::uint64_t high) const;

private:
    std::map<std::string, std::string> values_;
};

/// The whole number that the text is, and nothing beside it.
std::optional<std::uint64_t> WholeNumber(std::string_view text);

}  // namespace zorva
