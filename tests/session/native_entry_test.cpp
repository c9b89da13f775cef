#include "fields/forms.h"
#include "session/native_entry.h"
#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

namespace tarvix::session {
namespace {

struct NativeEntry : ::testing::Test {
    platform::MemoryPlatform machine;
    fields::Forms forms;
    std::optional<std::string> Entry(const fields::Control& control) {
        return EntryInDriveForm(machine.platform.paths, control);
    }
};

TEST_F(NativeEntry, EachNativePathOfAListIsTakenInDriveForm) {
    const auto form = [this](std::string_view list) {
        return DriveForm(machine.platform.paths, list);
    };
    EXPECT_EQ(form("/home/ann"), "C:\\home\\ann");
    EXPECT_EQ(form("C:\\t|/home/ann|/tmp"), "C:\\t|C:\\home\\ann|C:\\tmp");
    EXPECT_EQ(form("|/tmp|"), "|C:\\tmp|");
    EXPECT_EQ(form("some rule"), "some rule");
    EXPECT_EQ(form(""), "");
}

TEST_F(NativeEntry, BothBoxesOfPathsAreBroughtIntoDriveForm) {
    forms.frmSearch.cmbDir.Text = "/home/ann|C:\\t";
    forms.frmDialog.cmbDir.Text = "/tmp";
    EXPECT_EQ(Entry(forms.frmSearch.cmbDir), "C:\\home\\ann|C:\\t");
    EXPECT_EQ(Entry(forms.frmDialog.cmbDir), "C:\\tmp");
}

TEST_F(NativeEntry, WhatIsInDriveFormStays) {
    forms.frmSearch.cmbDir.Text = "C:\\home|E:\\x";
    EXPECT_EQ(Entry(forms.frmSearch.cmbDir), std::nullopt);
}

TEST_F(NativeEntry, ADisabledBoxAndOtherControlsStay) {
    forms.frmSearch.cmbDir.Text = "/home/ann";
    forms.frmSearch.cmbDir.Enabled = false;
    forms.frmSearch.cmbSearchFor.Text = "/home/ann";
    forms.frmDialog.txtFind.Text = "/home/ann";
    EXPECT_EQ(Entry(forms.frmSearch.cmbDir), std::nullopt);
    EXPECT_EQ(Entry(forms.frmSearch.cmbSearchFor), std::nullopt);
    EXPECT_EQ(Entry(forms.frmDialog.txtFind), std::nullopt);
}

} // namespace
} // namespace tarvix::session
