#include "session/native_entry.h"

#include "fields/control.h"
#include "platform/native_paths.h"

namespace tarvix::session {

namespace {

bool TakesPaths(const fields::Control& control) {
    return control.Kind() == fields::ControlKind::kComboBox && control.Name() == "cmbDir";
}

} // namespace

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

std::optional<std::string> EntryInDriveForm(const platform::NativePaths& paths,
                                            const fields::Control& control) {
    if (!TakesPaths(control) || !control.Enabled) return std::nullopt;
    const std::string typed = control.ValueText();
    std::string drive = DriveForm(paths, typed);
    if (drive == typed) return std::nullopt;
    return drive;
}

} // namespace tarvix::session
