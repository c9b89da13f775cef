#include "platform/linux/desktop_entries.h"

#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"
#include "platform/linux/session_bus.h"
#include "text/case.h"

#include <algorithm>
#include <memory>

namespace tarvix::platform {

namespace {

struct AppListFree {
    void operator()(GList* list) const { TX_GIO(g_list_free_full)(list, TX_GIO(g_object_unref)); }
};
using AppList = std::unique_ptr<GList, AppListFree>;

constexpr std::string_view kSuffix = ".desktop";

std::string Owned(char* text) {
    const GlibPointer<char> held(text);
    return text == nullptr ? std::string() : std::string(text);
}

std::string Plain(const char* text) {
    return text == nullptr ? std::string() : std::string(text);
}

Application FactsOf(GAppInfo* info) {
    Application application{.id = Plain(TX_GIO(g_app_info_get_id)(info)),
                            .name = Plain(TX_GIO(g_app_info_get_name)(info))};
    if (!IsDesktopEntry(info)) return application;
    auto* entry = AsDesktopEntry(info);
    if (application.id.empty())
        application.id = Plain(TX_GIO(g_desktop_app_info_get_filename)(entry));
    application.icon = Owned(TX_GIO(g_desktop_app_info_get_string)(entry, "Icon"));
    application.isTerminal = TX_GIO(g_desktop_app_info_get_boolean)(entry, "Terminal") != FALSE;
    return application;
}

// An entry that the bus starts is named as its application is on the bus.
std::string BusNameOf(GDesktopAppInfo* entry, const std::string& file) {
    if (!TX_GIO(g_desktop_app_info_get_boolean)(entry, "DBusActivatable")) return {};
    std::string name = file.substr(file.rfind('/') + 1);
    if (!name.ends_with(kSuffix)) return {};
    name.resize(name.size() - kSuffix.size());
    return TX_GIO(g_dbus_is_name)(name.c_str()) && name.find('.') != name.npos ? name
                                                                               : std::string();
}

std::vector<Application> FactsOfAll(const GList* list) {
    std::vector<Application> all;
    for (const GList* entry = list; entry != nullptr; entry = entry->next)
        all.push_back(FactsOf(AsAppInfo(entry->data)));
    return all;
}

std::vector<Application> ApplicationsFor(const std::string& type) {
    const AppList list(TX_GIO(g_app_info_get_all_for_type)(type.c_str()));
    auto all = FactsOfAll(list.get());
    const auto standard = DefaultApplication(type);
    const auto found =
        standard ? std::ranges::find(all, standard->id, &Application::id) : all.end();
    if (found != all.end()) std::rotate(all.begin(), found, std::next(found));
    return all;
}

} // namespace

std::optional<DesktopEntry> ReadEntry(const std::string& id) {
    const ObjectPointer<GDesktopAppInfo> entry(
        id.starts_with('/') ? TX_GIO(g_desktop_app_info_new_from_filename)(id.c_str())
                            : TX_GIO(g_desktop_app_info_new)(id.c_str()));
    if (entry == nullptr) return std::nullopt;
    DesktopEntry read{.application = FactsOf(AsAppInfo(entry.get()))};
    read.line = {.exec = Owned(TX_GIO(g_desktop_app_info_get_string)(entry.get(), "Exec")),
                 .name = read.application.name,
                 .icon = read.application.icon,
                 .entryFile = Plain(TX_GIO(g_desktop_app_info_get_filename)(entry.get()))};
    read.folder = Owned(TX_GIO(g_desktop_app_info_get_string)(entry.get(), "Path"));
    read.busName = BusNameOf(entry.get(), read.line.entryFile);
    read.notifiesStart =
        TX_GIO(g_desktop_app_info_get_boolean)(entry.get(), "StartupNotify") != FALSE;
    return read;
}

std::optional<Application> DefaultApplication(const std::string& type) {
    const ObjectPointer<GAppInfo> info(
        TX_GIO(g_app_info_get_default_for_type)(type.c_str(), FALSE));
    return info == nullptr ? std::nullopt : std::optional(FactsOf(info.get()));
}

std::vector<Application> ApplicationsForAll(std::span<const std::string> types) {
    if (types.empty()) return {};
    auto all = ApplicationsFor(types.front());
    for (const std::string& type : types.subspan(1)) {
        const auto others = ApplicationsFor(type);
        std::erase_if(all, [&](const Application& one) {
            return std::ranges::find(others, one.id, &Application::id) == others.end();
        });
    }
    return all;
}

std::vector<Application> ShownApplications() {
    const AppList list(TX_GIO(g_app_info_get_all)());
    std::vector<Application> all;
    for (const GList* entry = list.get(); entry != nullptr; entry = entry->next) {
        auto* info = AsAppInfo(entry->data);
        if (TX_GIO(g_app_info_should_show)(info)) all.push_back(FactsOf(info));
    }
    std::ranges::stable_sort(all, [](const Application& left, const Application& right) {
        return text::CompareNoCase(left.name, right.name) < 0;
    });
    return all;
}

std::string ContentTypeOf(const std::string& native) {
    const ObjectPointer<GFile> file(TX_GIO(g_file_new_for_path)(native.c_str()));
    const ObjectPointer<GFileInfo> info(
        TX_GIO(g_file_query_info)(file.get(), G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE,
                                  G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
    return info == nullptr ? std::string()
                           : Plain(TX_GIO(g_file_info_get_content_type)(info.get()));
}

std::string ContentTypeOfName(const std::string& name) {
    gboolean isUncertain = FALSE;
    std::string type = Owned(TX_GIO(g_content_type_guess)(name.c_str(), nullptr, 0, &isUncertain));
    return TX_GIO(g_content_type_is_unknown)(type.c_str()) ? std::string() : type;
}

} // namespace tarvix::platform
