#include "cli/commands.h"
#include "cli/messages.h"
#include "cli/nearest.h"
#include "cli/print_rows.h"
#include "platform/environment.h"
#include "platform/native_paths.h"
#include "session/lifecycle/data_folder.h"
#include "session/remembered/options_file.h"
#include "session/remembered/platform_file.h"
#include "session/session.h"
#include "session/settings/option_values.h"
#include "session/unattended_prompts.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <ostream>

namespace tarvix::cli {

namespace {

using session::NamedSetting;
using session::OptionKey;
using Done = std::expected<void, std::string>;

constexpr std::string_view kBetween = " = ";
constexpr float kLeastSeconds = 1;
constexpr float kMostSeconds = 655;

// Without blanks and in upper case, so that "blnListItems(pathlevels)" names its line.
std::string Plain(std::string_view key) {
    return text::Upper(text::Replace(key, " ", ""));
}

NamedSetting SplitLine(const std::string& line) {
    const std::size_t at = line.find(kBetween);
    return {line.substr(0, at), line.substr(at + kBetween.size())};
}

// The lines of the options file with the key of each, then the machine's own settings.
struct Listed {
    NamedSetting setting;
    const OptionKey* key = nullptr; // of the options file
};
std::vector<Listed> ListAll(const session::Session& session) {
    std::vector<Listed> all;
    for (const OptionKey& key : session::kOptionKeys) {
        for (const std::string& line : session::OptionLines(session.state.options, key)) {
            all.push_back({SplitLine(line), &key});
        }
    }
    for (NamedSetting& setting : session::ListSettings(session.state.platformSettings)) {
        all.push_back({std::move(setting), nullptr});
    }
    return all;
}

std::string NoKey(std::string_view key, const std::vector<Listed>& all) {
    const auto keyOf = [](const Listed& listed) -> const std::string& {
        return listed.setting.key;
    };
    return fmt::format("There is no option \"{}\".{} tarvix-cli options list shows them.", key,
                       DidYouMean(key, all, keyOf));
}

// The options of a data folder, read and saved without starting the program.
class OptionsRun {
  public:
    OptionsRun(Host& host, const platform::Platform& machine, const OptionsRequest& request)
        : host_(host), session_(machine, prompts_), request_(request) {}

    int Run() {
        Read();
        if (request_.verb == OptionsVerb::kList) return List();
        const auto all = ListAll(session_);
        const auto found = std::ranges::find_if(all, [this](const Listed& listed) {
            return Plain(listed.setting.key) == Plain(request_.key);
        });
        if (request_.verb == OptionsVerb::kGet) {
            if (found == all.end()) return Refuse(NoKey(request_.key, all));
            host_.out << found->setting.value << std::endl;
            return kDone;
        }
        const bool isKnown = found != all.end();
        const Done set = isKnown && found->key ? SetOption(*found) : SetMachine();
        if (!set) return Refuse(isKnown || IsDrive() ? set.error() : NoKey(request_.key, all));
        return Save(isKnown && found->key);
    }

  private:
    void Read() {
        auto& state = session_.state;
        const bool isSetting = request_.verb == OptionsVerb::kSet;
        state.strDataFolder = lifecycle::PlaceOfData(session_.platform.environment).folder;
        if (isSetting) lifecycle::FindDataFolder(session_);
        lifecycle::FormDataPaths(session_);
        session::OpenPlatformFile(session_);
        session::OpenOptionFile(session_);
        TellAll();
    }

    int List() {
        std::vector<std::pair<std::string, std::string>> pairs;
        for (auto& [setting, key] : ListAll(session_))
            pairs.emplace_back(setting.key, setting.value);
        PrintPairs(pairs, kBetween, request_.json, host_.out);
        return kDone;
    }

    // Folders as they are typed in a terminal; the title stays unless one is given behind "[".
    std::string FolderValue(const std::string& before) const {
        const std::size_t bracket = std::min(request_.value.find('['), request_.value.size());
        std::string folders;
        for (const std::string_view piece :
             text::Split(std::string_view(request_.value).substr(0, bracket), '|')) {
            folders.append(folders.empty() ? "" : "|");
            folders.append(session_.platform.paths.ToDrive(piece));
        }
        const std::string title = bracket < request_.value.size() ? request_.value.substr(bracket)
                                                                  : before.substr(before.find('['));
        return folders + title;
    }

    Done SetOption(const Listed& listed) {
        const bool isFolder = std::holds_alternative<session::FolderLines>(listed.key->field);
        const std::string value = isFolder ? FolderValue(listed.setting.value) : request_.value;
        const std::string line = fmt::format("{}{}{}", listed.setting.key, kBetween, value);
        auto& options = session_.state.options;
        const auto taken =
            session::TakeOption(options, *listed.key, session::SplitOptionLine(line));
        if (!taken) return std::unexpected(BadValue(listed.setting.key));
        const float seconds = options.sngDefWebSeconds;
        if (seconds < kLeastSeconds || seconds > kMostSeconds) {
            return std::unexpected("Default time for web pages must be no less than 1 and no more "
                                   "than 655.");
        }
        return {};
    }

    Done SetMachine() {
        auto& state = session_.state;
        if (!session::SetSetting(state.platformSettings, request_.key, request_.value)) {
            return std::unexpected(BadValue(request_.key));
        }
        state.options.intLatestYear = state.platformSettings.latestYear;
        return {};
    }

    bool IsDrive() const { return Plain(request_.key).starts_with("DRIVE"); }

    std::string BadValue(std::string_view key) const {
        return fmt::format("\"{}\" is no value for {}.", request_.value, key);
    }

    int Save(bool isOption) {
        if (isOption) {
            session::SaveOptionFile(session_);
        } else {
            session::SavePlatformFile(session_);
        }
        const auto& state = session_.state;
        const std::string& file = isOption ? state.strOptionFile : state.strPlatformFile;
        const bool isLeft =
            isOption ? state.blnOptionFileUnread : state.filesLeftAlone.contains(file);
        if (isLeft) {
            TellAll();
            Complain(host_, fmt::format("{} could not be read whole, so nothing was saved in it: "
                                        "mend it, or remove it to begin anew.",
                                        session_.platform.paths.ToNative(file)));
            return kSomeFailed;
        }
        return TellAll() ? kSomeFailed : kDone;
    }

    // What the routines told, once each; whether they told anything.
    bool TellAll() {
        const bool any = told_ < prompts_.Records().size();
        for (; told_ < prompts_.Records().size(); ++told_) {
            Tell(host_, prompts_.Records()[told_].text);
        }
        return any;
    }

    int Refuse(const std::string& sentence) {
        Complain(host_, sentence);
        return kBadRequest;
    }

    Host& host_;
    session::UnattendedPrompts prompts_;
    session::Session session_;
    const OptionsRequest& request_;
    std::size_t told_ = 0;
};

} // namespace

int Run(Host& host, const platform::Platform& machine, const OptionsRequest& request) {
    return OptionsRun(host, machine, request).Run();
}

} // namespace tarvix::cli
