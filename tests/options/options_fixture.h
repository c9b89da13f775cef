#pragma once

#include "session/product.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <string_view>

namespace tarvix::testing {

inline const std::string kData = "C:\\home\\ann\\tarvix\\";
inline const std::string kOptionFile = kData + "TXOptionFile.txt";
inline const std::string kPlatformFile = kData + "TXPlatform.txt";

// A program whose options window is driven by the names of its controls.
class OptionsFixture : public ProgramFixture {
  protected:
    fields::FrmOptions& Window() { return S().forms.frmOptions; }

    // A file of the running version with these lines, ended as a saved one is.
    void GivenOptions(const std::string& lines) {
        Disk().AddFile(kOptionFile,
                       "Tarvix Settings - Version\r\n" + std::string(session::ProductVersion()) +
                           "\r\nDO NOT EDIT WHILE TARVIX IS RUNNING, edits will be lost at "
                           "close.\r\n" +
                           lines + "*EOF");
    }
    // Opens the window, acts in it, and cancels what it leaves open.
    void Inside(const std::function<void()>& act) {
        bool came = false;
        prompts.SetModalRunner([&](session::Session&, fields::Form& form) {
            if (&form != &Window()) return false;
            came = true;
            act();
            if (form.IsShown()) Click(Window().cmdCancel);
            return true;
        });
        Click(Form().mnuOptions);
        prompts.SetModalRunner({});
        EXPECT_TRUE(came);
    }
    // The same, ended by OK.
    void Accept(const std::function<void()>& act) {
        Inside([&] {
            act();
            Click(Window().cmdOK);
            EXPECT_FALSE(Window().IsShown());
        });
    }
    fields::Control& Named(std::string_view name) {
        fields::Control* control = Window().Find(name);
        if (control == nullptr) ADD_FAILURE() << name;
        return control == nullptr ? static_cast<fields::Control&>(Window().lblActive) : *control;
    }
    void SetNamed(std::string_view name, std::string_view value) { Set(Named(name), value); }
    std::string ValueOf(std::string_view name) { return Named(name).ValueText(); }

    std::string File() { return Disk().Content(kOptionFile).value_or(""); }
    std::string MachineFile() { return Disk().Content(kPlatformFile).value_or(""); }
    bool FileHas(const std::string& line) {
        return File().find("\r\n" + line + "\r\n") != std::string::npos;
    }
    // The columns whose boxes are checked, by their index.
    std::vector<int> CheckedColumns() {
        std::vector<int> checked;
        for (int column = 1; column <= 24; ++column) {
            if (Window().chkList[column].Value == 1) checked.push_back(column);
        }
        return checked;
    }
};

} // namespace tarvix::testing
