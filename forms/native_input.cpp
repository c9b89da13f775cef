#include "forms/native_input.h"

#include "fields/control.h"
#include "forms/text_conversion.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "platform/platform.h"
#include "text/case.h"
#include "text/paths.h"

namespace tarvix::forms {

bool TakesPaths(const fields::Control& control) {
    return control.Kind() == fields::ControlKind::kComboBox && control.Name() == "cmbDir";
}

std::string DriveForm(const platform::NativePaths& paths, std::string_view list) {
    std::string result;
    while (true) {
        const std::size_t bar = list.find('|');
        const std::string_view piece = list.substr(0, bar);
        result += paths.IsNative(piece) ? paths.ToDrive(piece) : std::string(piece);
        if (bar == std::string_view::npos) return result;
        result += '|';
        list.remove_prefix(bar + 1);
    }
}

std::string DroppedLocations(const platform::Platform& machine, const QList<QUrl>& urls) {
    std::string result;
    for (const QUrl& url : urls) {
        if (!url.isLocalFile()) continue;
        const std::string path = machine.paths.ToDrive(ToUtf8(url.toLocalFile()));
        const bool isList = text::EqualNoCase(text::GetExtension(path), "mpl");
        const auto facts = machine.files.Facts(path);
        const bool isFile = facts && !facts->IsFolder();
        result = Appended(result, isFile && !isList ? text::ParentFolder(path) : path);
    }
    return result;
}

std::string Appended(std::string_view list, std::string_view more) {
    std::string result(list);
    if (!result.empty() && !more.empty() && !result.ends_with('|')) result += '|';
    return result.append(more);
}

} // namespace tarvix::forms
