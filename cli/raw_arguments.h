#pragma once

#include <array>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::cli {

// The arguments as words: which command, and what was typed for each option. Nothing is checked.
struct RawArguments {
    std::string command;
    std::optional<std::string> dataFolder, now;
    std::vector<std::string> drives;

    std::vector<std::string> patterns, locations, answers;
    std::optional<std::string> kind, dateKind;
    std::optional<std::string> sizeAtLeast, sizeAtMost, sizeRange;
    std::optional<std::string> since, before, between;
    std::array<std::optional<std::string>, 10> attributes;
    bool isNot = false, oneEach = false, noSubfolders = false, anyAttribute = false;

    std::optional<std::string> columns, sort;
    bool json = false, table = false, zero = false;

    std::optional<std::string> destination, rule, levels, structure, onDuplicate;
    std::optional<std::string> renameText, renameAt;
    std::vector<std::string> lists;
    bool withFolderNames = false, yes = false, dryRun = false;
    std::optional<std::string> insertedText, insertAt, soughtText, newText, portion;
    bool onlyOnce = false;
    std::optional<std::string> onRecycleFailure, overrideSystemHidden;

    std::vector<std::string> words;    // of options
    std::optional<std::string> target; // the script, or the folder of the sample
};

// Why nothing is to be run: a text for stdout (help, version), or a sentence for stderr.
struct EarlyEnd {
    int exitCode = 0;
    std::string out;
    std::string sentence;
};

// `arguments` without the program's name.
std::expected<RawArguments, EarlyEnd> ReadRawArguments(const std::vector<std::string>& arguments);

// The options of the ten attribute boxes, in their order.
extern const std::array<std::string_view, 10> kAttributeOptions;

} // namespace tarvix::cli
