#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A Special Rule: a destination folder with marks that take their text from the object's own path.
// "*n*" is one character of it; "|a,b|", a whole level, is the first folder there whose name holds
// `b` characters of it from `a` on. Nothing here looks at a disk.
namespace tarvix::actions {

struct SpecialRule {
    struct SearchSet {
        int start = 0; // in characters, from 1
        int length = 0;
    };
    std::string text;           // as typed
    std::vector<int> positions; // of the replacement marks, in their order
    std::optional<SearchSet> set;

    // "|a,b|", or empty.
    std::string SetText() const;
};

// The rule, or the sentence that says why it can't be used.
std::expected<SpecialRule, std::string_view> ValidateSpecialRule(std::string_view rule);

enum class RuleEnd : std::uint8_t {
    kFolder,       // the rule gave `folder`
    kSearch,       // its folder is still to be looked for, by `front` and `set`
    kShortReplace, // `position` is beyond the path
    kColon,        // a colon where none can be
    kDots,         // a folder named "." or ".."
    kShortSearch,  // the set is beyond the path
    kSlashInSet,
};

// What a rule gives for one object.
struct RuleResult {
    RuleEnd end = RuleEnd::kFolder;
    std::string folder; // without a final "\"
    std::string front;  // the folder to look in, with its "\"
    std::string set;    // what the folder's name must hold
    std::string rest;   // what follows the folder that is found
    int position = 0;
    bool hasDoubledSlash = false; // which is made single
    std::string made;             // the rule with its characters replaced, for messages

    // The folder, once the Search Set has found one of that name.
    std::string WithFound(std::string_view name) const { return front + std::string(name) + rest; }
};

// `path` is the object's path as listed.
RuleResult SpecialRuleConvert(const SpecialRule& rule, std::string_view path);

} // namespace tarvix::actions
