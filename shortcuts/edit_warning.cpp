#include "shortcuts/edit_warning.h"

namespace tarvix::shortcuts {

std::string WarningTop() {
    return "After you select OK, a text editor will open listing the details of the shortcuts you "
           "selected. Editing the details and saving the file Tarvix will be able to apply all the "
           "changes you made. \r\n\r\n"
           "I recommend you cancel and use the copy button to make a backup before editing.\r\n\r\n"
           "A good way of making many changes quickly is to use Find and Replace in the editor, or "
           "to edit in a table.\r\n\r\n"
           "You don't have to change anything. But you can not get out of Shortcut Editing Mode "
           "until you either select 'Save Targets', press cancel in menu bar or close Tarvix. "
           "After you select 'Save Targets' you have the opportunity to cancel.\r\n\r\n"
           "Tarvix does NOT allow editing of lnk(s) and url(s) that have no TargetPath. You must "
           "edit those manually.\r\n\r\n"
           "'computer.lnk' in Windows 7 - System Tools in the start menu is an example of a "
           "shortcut without a readable TargetPath.";
}

std::string WarningBottom() {
    return "Targets in .lnk files are paths of the system that they were made for. Below a folder "
           "with its own drive letters those letters count, as in a Wine prefix.\r\n\r\n"
           "Hotkeys in shortcuts ONLY work if the shortcut resides in a Start Menu, Desktop, or "
           "Quicklaunch of that system. If you use the Hotkey property, you need to log off and on "
           "after editing, before the HotKey will work. Desktop entries have no hotkey.\r\n\r\n"
           "Internet shortcuts use codes for HotKeys.\r\n\r\n"
           "The old version of each shortcut that is changed goes to the trash.";
}

} // namespace tarvix::shortcuts
