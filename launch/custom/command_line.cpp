#include "launch/custom/command_line.h"

#include "launch/custom/chosen.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace tarvix::custom {

namespace {

using platform::PlannedProcess;

constexpr std::array<std::string_view, 6> kShells{"sh", "bash", "dash", "zsh", "ksh", "ash"};

bool IsShell(std::string_view word) {
    return std::ranges::find(kShells, NameOf(word)) != kShells.end();
}

// "-c", "-lc".
bool TakesProgram(std::string_view option) {
    return option.size() > 1 && option[0] == '-' && option[1] != '-' &&
           option.find('c') != option.npos;
}

// What a code at `at`, a "%", has; `at` moves to its letter. Nothing for a "%" that begins none.
std::optional<std::vector<std::string>> CodeAt(std::string_view text, std::size_t& at,
                                               const Codes& codes) {
    if (at + 1 >= text.size()) return std::nullopt;
    if (text[at + 1] == '%') {
        ++at;
        return std::vector<std::string>{"%"};
    }
    auto values = codes(text[at + 1]);
    if (values) ++at;
    return values;
}

bool IsCodeAlone(std::string_view word) {
    return word.size() == 2 && word[0] == '%' && word[1] != '%';
}

// A program for a shell whose codes become references to variables. What a variable holds is never
// read as a part of the program, wherever the reference stands.
class ShellProgram {
  public:
    ShellProgram(PlannedProcess& process, const Codes& codes) : process_(process), codes_(codes) {}

    std::string Fill(std::string_view program) {
        std::string filled;
        for (std::size_t at = 0; at < program.size(); ++at) {
            if (program[at] == '%') {
                const auto values = CodeAt(program, at, codes_);
                filled += !values ? "%" : program[at] == '%' ? "%" : References(*values, quote_);
            } else if (program[at] == '\\' && quote_ != '\'' && at + 1 < program.size()) {
                filled.append(program.substr(at++, 2));
            } else {
                Turn(filled, program[at]);
                filled += program[at];
            }
        }
        return filled;
    }

  private:
    // Whether what stands in quotes from here on is a program of its own, behind "sh -c".
    static bool OpensProgram(std::string_view filled) {
        if (!filled.ends_with(' ')) return false;
        bool takesProgram = false;
        while (true) {
            const std::size_t end = filled.find_last_not_of(' ');
            if (end == filled.npos) return false;
            const std::size_t blank = filled.find_last_of(' ', end);
            const std::size_t begin = blank == filled.npos ? 0 : blank + 1;
            const std::string_view word = filled.substr(begin, end + 1 - begin);
            if (!word.starts_with('-')) return takesProgram && IsShell(word);
            takesProgram = takesProgram || TakesProgram(word);
            filled = filled.substr(0, begin);
        }
    }

    void Turn(std::string_view filled, char c) {
        if (c != '\'' && c != '"') return;
        if (quote_ == 0) {
            quote_ = c;
            isInner_ = OpensProgram(filled);
        } else if (quote_ == c) {
            quote_ = 0;
            isInner_ = false;
        }
    }

    std::string References(const std::vector<std::string>& values, char quote) {
        std::string text;
        for (const std::string& value : values) {
            if (!text.empty()) text += ' ';
            text += Reference(Variable(value), quote);
        }
        return text;
    }

    std::string Reference(const std::string& name, char quote) const {
        const std::string plain = fmt::format("${{{}}}", name);
        if (quote == '"') return isInner_ ? fmt::format("\\\"\\{}\\\"", plain) : plain;
        const std::string quoted = fmt::format("\"{}\"", plain);
        // In single quotes an inner program reads the variable itself.
        return quote == '\'' && !isInner_ ? fmt::format("'{}'", quoted) : quoted;
    }

    std::string Variable(const std::string& value) {
        const auto [found, isNew] = names_.try_emplace(value);
        if (isNew) {
            found->second = fmt::format("TARVIX_{}", process_.variables.size() + 1);
            process_.variables.emplace_back(found->second, value);
        }
        return found->second;
    }

    PlannedProcess& process_;
    const Codes& codes_;
    char quote_ = 0;
    bool isInner_ = false;
    std::map<std::string, std::string> names_; // of variables by value
};

struct WordReader {
    std::vector<std::string> words;
    std::string word;
    bool isOpen = false; // a word has begun
    char quote = 0;

    void End() {
        if (isOpen) words.push_back(std::exchange(word, {}));
        isOpen = false;
    }
};

} // namespace

std::optional<std::vector<std::string>> SplitWords(std::string_view line) {
    WordReader reader;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const bool hasNext = i + 1 < line.size();
        if (reader.quote == 0 && (c == ' ' || c == '\t' || c == '\n')) {
            reader.End();
            continue;
        }
        reader.isOpen = true;
        const bool isEscape =
            c == '\\' && hasNext &&
            (reader.quote == 0 ||
             (reader.quote == '"' && std::string_view("\"\\$`").find(line[i + 1]) != line.npos));
        if (isEscape) {
            reader.word += line[++i];
        } else if (reader.quote == 0 && (c == '"' || c == '\'')) {
            reader.quote = c;
        } else if (c == reader.quote && c != 0) {
            reader.quote = 0;
        } else {
            reader.word += c;
        }
    }
    if (reader.quote != 0) return std::nullopt;
    reader.End();
    if (reader.words.empty()) return std::nullopt;
    return std::move(reader.words);
}

bool NeedsShell(std::string_view line) {
    char quote = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '\\' && quote != '\'') {
            ++i;
        } else if (quote != 0) {
            if (c == quote) quote = 0;
            if (quote == '"' && (c == '$' || c == '`')) return true;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (std::string_view("|&;<>()$`*?[#~={}!\n").find(c) != line.npos) {
            // "a=b" is a word like any other behind the first one.
            if (c != '=' || line.substr(0, i).find(' ') == line.npos) return true;
        }
    }
    return false;
}

std::string FillText(std::string_view text, const Codes& codes) {
    std::string filled;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            filled += text[at];
            continue;
        }
        const auto values = CodeAt(text, at, codes);
        if (!values) {
            filled += '%';
            continue;
        }
        for (std::size_t i = 0; i < values->size(); ++i)
            filled.append(i > 0 ? " " : "").append((*values)[i]);
    }
    return filled;
}

std::optional<PlannedProcess> FillWords(std::string_view line, const Codes& codes) {
    const auto words = SplitWords(line);
    if (!words) return std::nullopt;
    PlannedProcess process;
    bool isShell = false;
    bool isProgram = false;
    for (const std::string& word : *words) {
        if (isProgram) {
            process.arguments.push_back(ShellProgram(process, codes).Fill(word));
            isProgram = isShell = false;
            continue;
        }
        isProgram = isShell && TakesProgram(word);
        isShell = IsShell(word) || (isShell && word.starts_with('-'));
        const auto values = IsCodeAlone(word) ? codes(word[1]) : std::nullopt;
        if (values) {
            process.arguments.insert(process.arguments.end(), values->begin(), values->end());
        } else {
            process.arguments.push_back(FillText(word, codes));
        }
    }
    if (process.arguments.empty()) return std::nullopt;
    return process;
}

PlannedProcess FillShellLine(std::string_view line, const Codes& codes) {
    PlannedProcess process;
    std::string program = ShellProgram(process, codes).Fill(line);
    process.arguments = {"/bin/sh", "-c", std::move(program)};
    return process;
}

} // namespace tarvix::custom
