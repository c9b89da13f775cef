#include "platform/linux/exec_line.h"

#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"
#include "platform/names.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::platform {

namespace {

using Words = std::vector<std::string>;

struct StringsFree {
    void operator()(char** strings) const { TX_GIO(g_strfreev)(strings); }
};

// Whether a word holds one of these codes; "%%" is none.
bool HasCode(std::string_view word, std::string_view codes) {
    for (std::size_t i = 0; i + 1 < word.size(); ++i) {
        if (word[i] != '%') continue;
        if (codes.find(word[++i]) != codes.npos) return true;
    }
    return false;
}

bool AnyHasCode(const Words& words, std::string_view codes) {
    return std::ranges::any_of(words,
                               [&](const std::string& word) { return HasCode(word, codes); });
}

class Expansion {
  public:
    Expansion(const ExecLine& line, std::span<const std::string> files)
        : line_(line), files_(files) {}

    // Quoted or not, a word that was nothing but codes and came out empty is no argument.
    void Add(const std::string& word) {
        if (word == "%i") {
            if (!line_.icon.empty()) words_.insert(words_.end(), {"--icon", line_.icon});
        } else if (word == "%F" || word == "%U") {
            for (const std::string& file : files_)
                words_.push_back(word[1] == 'F' ? file : AddressOf(file));
        } else if (std::string expanded = Expanded(word); !expanded.empty() || word.empty()) {
            words_.push_back(std::move(expanded));
        }
    }

    Words Take() { return std::move(words_); }

  private:
    std::string Expanded(const std::string& word) const {
        std::string out;
        for (std::size_t i = 0; i < word.size(); ++i) {
            if (word[i] != '%' || i + 1 == word.size()) {
                out += word[i];
            } else {
                out += Value(word[++i]);
            }
        }
        return out;
    }

    // Codes that have gone out of use, and unknown ones, stand for nothing.
    std::string Value(char code) const {
        const std::string first = files_.empty() ? "" : files_.front();
        switch (code) {
        case '%':
            return "%";
        case 'f':
        case 'F':
            return first;
        case 'u':
        case 'U':
            return first.empty() ? "" : AddressOf(first);
        case 'c':
            return line_.name;
        case 'k':
            return line_.entryFile;
        case 'i':
            return line_.icon;
        default:
            return "";
        }
    }

    const ExecLine& line_;
    std::span<const std::string> files_;
    Words words_;
};

Words Expand(const ExecLine& line, const Words& words, std::span<const std::string> files) {
    Expansion expansion(line, files);
    for (const std::string& word : words)
        expansion.Add(word);
    return expansion.Take();
}

std::vector<Words> ExpandWords(const ExecLine& line, const Words& words,
                               std::span<const std::string> files) {
    if (files.size() <= 1 || AnyHasCode(words, "FU")) return {Expand(line, words, files)};
    std::vector<Words> all;
    for (const std::string& file : files)
        all.push_back(Expand(line, words, {&file, 1}));
    return all;
}

} // namespace

std::string AddressOf(const std::string& file) {
    return file.starts_with('/') ? FileAddress(file) : file;
}

bool TakesAddresses(std::string_view exec) {
    const auto words = SplitCommand(exec);
    return words && AnyHasCode(*words, "uU");
}

Result<Words> SplitCommand(std::string_view command) {
    int count = 0;
    char** parted = nullptr;
    GError* error = nullptr;
    TX_GIO(g_shell_parse_argv)(std::string(command).c_str(), &count, &parted, &error);
    const GlibPointer<GError> heldError(error);
    const std::unique_ptr<char*, StringsFree> held(parted);
    if (parted == nullptr) {
        return Failure(kInvalidCall,
                       fmt::format("The command \"{}\" can't be read: {}.", command,
                                   error != nullptr ? error->message : "it is empty"));
    }
    return Words(parted, parted + count);
}

Result<std::vector<Words>> ExpandExec(const ExecLine& line, std::span<const std::string> files) {
    auto words = SplitCommand(line.exec);
    if (!words) return std::unexpected(std::move(words.error()));
    if (!files.empty() && !AnyHasCode(*words, "fFuU")) words->emplace_back("%f");
    return ExpandWords(line, *words, files);
}

Result<std::vector<Words>> ExpandCommand(std::string_view command,
                                         std::span<const std::string> files) {
    auto words = SplitCommand(command);
    if (!words) return std::unexpected(std::move(words.error()));
    if (AnyHasCode(*words, "fFuU")) {
        return ExpandWords({.exec = std::string(command)}, *words, files);
    }
    words->insert(words->end(), files.begin(), files.end());
    return std::vector<Words>{std::move(*words)};
}

} // namespace tarvix::platform
