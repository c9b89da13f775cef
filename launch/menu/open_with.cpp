#include "launch/menu/open_with.h"

#include "platform/applications.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace tarvix::menu {

namespace {

using session::PromptId;
using session::Session;

constexpr std::size_t kMostTold = 10;

void Tell(Session& session, std::string_view sentence) {
    session.MsgBox(PromptId::kMenuNotDone, sentence);
}

platform::Result<void> Start(Session& session, std::string_view application,
                             const std::vector<std::string>& paths, const std::string& folder) {
    auto& applications = session.platform.applications;
    const auto plan = applications.PlanApplication(application, paths, folder);
    if (!plan) return std::unexpected(plan.error());
    return applications.Start(*plan);
}

// The objects of one application, in the list's order.
struct Group {
    std::string application;
    std::vector<std::string> paths;
};

class Opener {
  public:
    Opener(Session& session, const MenuObjects& objects) : session_(session), objects_(objects) {}

    void Run() {
        for (std::size_t i = 0; i < objects_.paths.size(); ++i)
            Sort(i);
        for (const Group& group : groups_) {
            const auto started =
                Start(session_, group.application, group.paths, objects_.chosen.folder);
            if (!started) sentences_.push_back(session_.Shown(started.error()));
        }
        if (!without_.empty()) {
            std::string sentence = "Nothing on this desktop opens files of this type:";
            for (const std::string& path : without_)
                sentence.append("\r\n").append(session_.Shown(path));
            sentences_.push_back(std::move(sentence));
        }
        TellAll();
    }

  private:
    void Sort(std::size_t index) {
        const std::string& type = objects_.chosen.objects[index].type;
        const auto [known, isNew] = byType_.try_emplace(type);
        if (isNew) {
            const auto usual = session_.platform.applications.DefaultFor(type);
            if (usual) known->second = GroupOf(usual->id);
        }
        if (known->second) {
            groups_[*known->second].paths.push_back(objects_.paths[index]);
        } else if (without_.size() < kMostTold) {
            without_.push_back(objects_.paths[index]);
        }
    }

    std::size_t GroupOf(const std::string& application) {
        for (std::size_t i = 0; i < groups_.size(); ++i) {
            if (groups_[i].application == application) return i;
        }
        groups_.push_back({application, {}});
        return groups_.size() - 1;
    }

    void TellAll() {
        std::string told;
        for (const std::string& sentence : sentences_)
            told.append(told.empty() ? "" : "\r\n\r\n").append(sentence);
        if (!told.empty()) Tell(session_, told);
    }

    Session& session_;
    const MenuObjects& objects_;
    std::map<std::string, std::optional<std::size_t>> byType_; // positions in groups_
    std::vector<Group> groups_;
    std::vector<std::string> without_; // objects of no application
    std::vector<std::string> sentences_;
};

// The list as the text in the box narrows it.
void FillApplications(Session& session) {
    auto& form = session.forms.frmOpenWith;
    const std::string wanted = text::Lower(text::Trim(form.txtFind.Text.Get()));
    std::vector<std::string> names;
    for (const platform::Application& application : session.platform.applications.All()) {
        if (text::Lower(application.name).find(wanted) != std::string::npos)
            names.push_back(application.name);
    }
    const bool isOne = names.size() == 1;
    form.lstApplications.SetItems(std::move(names));
    if (isOne) form.lstApplications.Select(0, true);
}

// The application of the chosen name; of several of one name the first.
std::optional<std::string> ChosenApplication(Session& session) {
    const auto& list = session.forms.frmOpenWith.lstApplications;
    for (std::size_t i = 0; i < list.Items().size(); ++i) {
        if (!list.IsSelected(i)) continue;
        for (const platform::Application& application : session.platform.applications.All()) {
            if (application.name == list.Items()[i]) return application.id;
        }
    }
    return std::nullopt;
}

void frmOpenWith_OK(Session& session) {
    auto& form = session.forms.frmOpenWith;
    form.isChosen = ChosenApplication(session).has_value();
    if (form.isChosen) form.Hide();
}

void frmOpenWith_Cancel(Session& session) {
    session.forms.frmOpenWith.isChosen = false;
    session.forms.frmOpenWith.Hide();
}

} // namespace

void OpenObjects(Session& session, const MenuObjects& objects) {
    Opener(session, objects).Run();
}

void OpenWith(Session& session, const MenuObjects& objects, std::string_view application) {
    const auto started = Start(session, application, objects.paths, objects.chosen.folder);
    if (!started) Tell(session, session.Shown(started.error()));
}

void ChooseWith(Session& session, const MenuObjects& objects) {
    auto& form = session.forms.frmOpenWith;
    form.lblMain.Caption = objects.paths.size() == 1
                               ? session.Shown(objects.paths.front())
                               : fmt::format("{} objects", objects.paths.size());
    form.txtFind.Text = "";
    form.isChosen = false;
    form.lstApplications.SelectNone();
    FillApplications(session);
    session.ShowModal(PromptId::kOpenWith);
    if (!form.isChosen) return;
    if (const auto application = ChosenApplication(session)) {
        OpenWith(session, objects, *application);
    }
}

void AddOpenWithEvents(session::EventTable& events) {
    events.On("frmOpenWith.txtFind_Change", FillApplications);
    events.On("frmOpenWith.cmdOK_Click", frmOpenWith_OK);
    events.On("frmOpenWith.cmdCancel_Click", frmOpenWith_Cancel);
}

} // namespace tarvix::menu
