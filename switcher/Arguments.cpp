#include "switcher/Arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string_view>

namespace {

using Values = std::map<std::string, std::string>;

constexpr std::array<std::string_view, 9> options{"--parent", "--window", "--display", "--keycodes",
    "--types", "--compat", "--symbols", "--geometry", "--static"};

bool isKnown(const std::string& option)
{
    return std::find(options.begin(), options.end(), option) != options.end();
}

Values readOptions(const std::vector<std::string>& words)
{
    Values values;
    for (auto word = words.begin(); word != words.end(); ++word) {
        const std::string& option = *word;
        if (!isKnown(option))
            throw std::invalid_argument("unknown argument '" + option + "'");
        if (option != "--static" && ++word == words.end())
            throw std::invalid_argument("'" + option + "' needs a value");
        if (!values.emplace(option, *word).second)
            throw std::invalid_argument("'" + option + "' is given twice");
    }
    return values;
}

std::string required(const Values& values, const std::string& option)
{
    const auto found = values.find(option);
    if (found == values.end() || found->second.empty())
        throw std::invalid_argument("'" + option + "' is missing");
    return found->second;
}

std::string optional(const Values& values, const std::string& option)
{
    const auto found = values.find(option);
    return found == values.end() ? std::string() : found->second;
}

// A whole decimal number, above zero, that fits `Number`.
template <typename Number>
Number requiredNumber(const Values& values, const std::string& option)
{
    const std::string text = required(values, option);
    const char* const end = text.data() + text.size();
    Number number = 0;
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || number <= 0)
        throw std::invalid_argument("'" + option + "' needs a positive number, not '" + text + "'");
    return number;
}

} // namespace

Arguments Arguments::parse(const std::vector<std::string>& words)
{
    const Values values = readOptions(words);
    Arguments result;
    result.parent = requiredNumber<pid_t>(values, "--parent");
    result.window = requiredNumber<std::uint32_t>(values, "--window");
    result.display = required(values, "--display");
    result.components.keycodes = optional(values, "--keycodes");
    result.components.types = optional(values, "--types");
    result.components.compat = optional(values, "--compat");
    result.components.symbols = optional(values, "--symbols");
    result.components.geometry = optional(values, "--geometry");
    result.isStatic = values.contains("--static");
    return result;
}
