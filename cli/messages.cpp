#include "cli/messages.h"

#include "cli/failure_lines.h"
#include "platform/names.h"
#include "search/left_out.h"
#include "session/message_style.h"
#include "session/prompt_table.h"
#include "session/session.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <iterator>
#include <ostream>

namespace tarvix::cli {

namespace {

// The lines of a text that hold something, with `between` between them.
std::string JoinLines(std::string_view text, std::string_view between) {
    std::string joined;
    for (const std::string_view line : text::Split(text, '\n')) {
        const std::string_view trimmed = text::Trim(line.substr(0, line.find('\r')));
        if (trimmed.empty()) continue;
        joined.append(joined.empty() ? "" : between).append(platform::ForDisplay(trimmed));
    }
    return joined;
}

bool IsConfirmation(const session::Prompt& prompt) {
    return session::FactsOf(prompt.id).role == session::PromptRole::kConfirmation;
}

void Say(Host& host, std::string_view text) {
    ClearProgress(host);
    if (host.colour) host.err << "\x1B[1;31m";
    host.err << "tarvix-cli: ";
    if (host.colour) host.err << "\x1B[0m";
    host.err << text << std::endl;
}

} // namespace

void Complain(Host& host, std::string_view sentence) {
    Say(host, JoinLines(sentence, " "));
}

void Tell(Host& host, std::string_view text) {
    Say(host, JoinLines(text, "\n  "));
}

void ClearProgress(Host& host) {
    if (host.progress.empty()) return;
    host.progress.clear();
    host.err << "\r\x1B[K" << std::flush;
}

void TellUnread(Host& host, const session::Session& session) {
    FailureLines lines("could not be read");
    for (const session::UnreadObject& object : session.state.unread.All())
        lines.Add(session.Shown(object.path), platform::ErrorText(object.number));
    lines.Tell(host);
}

void TellErrors(Host& host, const std::vector<std::string>& sentences, std::int64_t failed) {
    FailureLines lines("");
    for (const std::string& sentence : sentences)
        lines.AddSentence(OnOneLine(sentence));
    lines.AddUntold(std::max<std::int64_t>(0, failed - std::ssize(sentences)));
    lines.Tell(host);
}

void TellLeftOut(Host& host, const session::LeftOut& leftOut) {
    Complain(host,
             fmt::format("{}. --any-attribute finds them too.", search::LeftOutText(leftOut)));
}

std::string OnOneLine(std::string_view text) {
    return JoinLines(text, " ");
}

std::string HowToAnswer(const session::PromptRecord& prompt, std::string_view way) {
    std::string sentence = OnOneLine(prompt.text);
    if (sentence.empty()) sentence = prompt.title.empty() ? prompt.form : prompt.title;
    sentence.append(" - This needs an answer: ");
    const bool isOption = way.ends_with("--answer");
    if (prompt.kind == session::PromptKind::kForm) {
        return fmt::format("{}{} and a control or button of {}.", sentence, way, prompt.form);
    }
    if (prompt.kind != session::PromptKind::kMessage) {
        return sentence.append(way).append(" and the text.");
    }
    if (isOption && IsConfirmation(prompt)) return sentence.append("give --yes.");
    std::string ways;
    for (const int button : session::ButtonsOf(prompt.style)) {
        if (ways.empty()) {
            ways.append(way);
        } else {
            ways.append(" or ").append(way.substr(way.find(' ') + 1));
        }
        ways.append(" ").append(session::CaptionOf(button));
    }
    return sentence.append(ways).append(".");
}

} // namespace tarvix::cli
