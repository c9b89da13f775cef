#include "batch/ask_page_show.h"

#include "session/errors.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/case.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

namespace tarvix::batch {

namespace {

using platform::PageBrowser;
using platform::PageSize;
using session::PromptId;
using session::Session;

constexpr double kLeastSeconds = 1;
constexpr double kMostSeconds = 655;
constexpr std::string_view kFilters = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";

constexpr std::string_view kEnds =
    "Each page gets a browser of its own, which is ended before the next page.";
constexpr std::string_view kOwnSize =
    "It opens its windows in a size of its own, whatever size is chosen here.";
constexpr std::string_view kHandsOver =
    "It runs already and takes each page into a tab or a window of its own, so no page is closed.";

// What the user can do for a good show, and what is going to happen.
std::string Notice(const PageBrowser& browser) {
    std::string text =
        fmt::format("Pages open in {}, the default browser of this desktop.\r\n{}\r\n{}\r\n"
                    "To display as full screen as possible: \r\n\r\n",
                    browser.name, browser.endsPages ? kEnds : kHandsOver,
                    browser.takesSize ? "" : fmt::format("{}\r\n", kOwnSize));
    int number = 0;
    for (const std::string_view line :
         {"Make sure your default browser is properly configured and has no popups.",
          "Set the Desktop Background to black only.",
          "Remove all icons from the desktop, or place them on a 2nd screen.",
          "Place the panel on a 2nd screen or let it hide itself.",
          "Set webpage browsing to X (MaXimized) in Tarvix options.",
          "Increase the time per web page until display is smooth.",
          "During the 1st browser window, press F11, for full screen mode.",
          "Place the mouse on a 2nd screen or below the panel."}) {
        if (line.contains("MaXimized") && !browser.takesSize) continue;
        text += fmt::format("  {}. {}\r\n", ++number, line);
    }
    text += "\r\nTo stop, choose the menu entry again or close Tarvix.";
    return text;
}

void TellCanceled(Session& session) {
    session.MsgBox(PromptId::kPagesCanceled, "Canceled");
}

// Nothing when the user cancelled.
std::optional<double> AskSeconds(Session& session) {
    const auto& options = session.state.options;
    if (!options.blnAskWebTime) return options.sngDefWebSeconds;
    while (true) {
        const std::string typed = session.InputBox(PromptId::kPagesSeconds,
                                                   "Number of seconds for each web page. (1-655)",
                                                   fmt::format("{}", options.sngDefWebSeconds));
        if (typed.empty()) {
            TellCanceled(session);
            return {};
        }
        if (!IsNumericText(typed)) {
            session.MsgBox(PromptId::kPagesSecondsInvalid,
                           "Must be a number between 1 and 655.\r\n\r\nOnly numbers and decimal "
                           "points are allowed, blank entry cancels browser operation.");
        } else if (const auto seconds = ReadPageSeconds(typed)) {
            return seconds;
        } else {
            session.MsgBox(PromptId::kPagesSecondsInvalid, "Must be a number between 1 and 655");
        }
    }
}

std::optional<PageSize> SizeOf(std::string_view letter) {
    if (text::EqualNoCase(letter, "x")) return PageSize::kMaximized;
    if (text::EqualNoCase(letter, "n")) return PageSize::kMinimized;
    if (text::EqualNoCase(letter, "r")) return PageSize::kNormal;
    return {};
}

// Nothing when the user cancelled.
std::optional<PageSize> AskSize(Session& session) {
    const auto& options = session.state.options;
    const std::string_view standing = std::string_view(options.strDefWebSize).substr(0, 1);
    if (!options.blnAskWebSize) return SizeOf(standing).value_or(PageSize::kNormal);
    while (true) {
        const std::string typed = session.InputBox(
            PromptId::kPagesSize, "Size of web pages. ( X-MaXimized N-MiNimized R-NoRmal )",
            options.strDefWebSize.size() > 1 ? standing : std::string_view(options.strDefWebSize));
        if (typed.empty()) {
            TellCanceled(session);
            return {};
        }
        if (const auto size = SizeOf(typed)) return size;
        session.MsgBox(PromptId::kPagesSizeInvalid, "Must be x- MaX, n - MiN, or r - NoR");
    }
}

// Everything but the list; nothing when the user cancelled.
std::optional<PageShowRequest> AskPageShow(Session& session) {
    const auto seconds = AskSeconds(session);
    if (!seconds) return {};
    const auto size = AskSize(session);
    if (!size) return {};
    PageShowRequest request{.seconds = *seconds, .size = *size};
    request.list = session.PickFile(PromptId::kPickPages, kFilters, session.state.strDataFolder);
    if (request.list.empty()) {
        TellCanceled(session);
        return {};
    }
    return request;
}

void TellFailure(Session& session, const platform::PlatformError& error, const std::string& list) {
    if (error.number == platform::kPermissionDenied && error.path.empty()) {
        session.MsgBox(PromptId::kPageNotOpened, session.Shown(error));
        return;
    }
    session::TellUnexpected(session, error, "mnuTools_BrowserUseText_Click", list, "frmSearch");
}

} // namespace

bool IsNumericText(std::string_view text) {
    return !text.empty() && text != "." &&
           std::ranges::all_of(text, [](char c) { return c == '.' || (c >= '0' && c <= '9'); });
}

std::optional<double> ReadPageSeconds(std::string_view typed) {
    double seconds = 0;
    const char* end = typed.data() + typed.size();
    const auto [rest, error] = std::from_chars(typed.data(), end, seconds);
    const bool isWhole = error == std::errc{} && rest == end;
    if (!isWhole || seconds < kLeastSeconds || seconds > kMostSeconds) return {};
    return seconds;
}

void AskAndShowPages(Session& session, PageShow& show) {
    const PageBrowser browser = session.platform.launcher.DefaultBrowser();
    if (browser.name.empty()) {
        session.MsgBox(PromptId::kPageNotOpened,
                       "This desktop has no default browser: choose one in its settings, then try "
                       "again.");
        return;
    }
    session.MsgBox(PromptId::kPagesNotice, Notice(browser));
    while (const auto request = AskPageShow(session)) {
        const auto started = show.Start(session, *request);
        if (!started) return TellFailure(session, started.error(), request->list);
        if (*started) return;
        session.MsgBox(PromptId::kPagesEmpty, "File is empty");
    }
}

void AddPageEvents(session::EventTable& events) {
    const auto show = std::make_shared<PageShow>();
    events.On("frmSearch.mnuTools_BrowserUseText_Click",
              [show](Session& session, const session::EventArgs&) {
                  if (show->IsOn()) {
                      show->End(session);
                  } else {
                      AskAndShowPages(session, *show);
                  }
                  session.frmSearch.mnuTools_BrowserUseText.Checked = show->IsOn();
              });
    events.On("frmSearch.Timer1_Timer", [show](Session& session, const session::EventArgs&) {
        show->Tick(session);
        session.frmSearch.mnuTools_BrowserUseText.Checked = show->IsOn();
    });
}

} // namespace tarvix::batch
