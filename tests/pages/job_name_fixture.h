// The job name dialog on a session with a stored choice and name.
#pragma once

#include "pages/JobNameDlg.h"
#include "tests/pages/dialog_text.h"
#include "tests/pages/modal_dialog.h"
#include "tests/pages/page_fixture.h"
#include "tests/support/message_box.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

inline constexpr int kAutomatic = 1221;
inline constexpr int kEntered = 1222;
inline constexpr int kEdit = 1224;

inline void StoreName(std::uint32_t choice, const std::string& name) {
    ExportedFunc_SetSpecificJobName(choice);
    ExportedFunc_SetJobName(name.c_str());
}
inline std::uint32_t StoredChoice() {
    std::uint32_t choice = 0;
    ExportedFunc_GetSpecificJobName(&choice);
    return choice;
}
inline std::string StoredName() {
    std::array<char, 512> name{};
    ExportedFunc_GetJobName(name.data());
    return name.data();
}

class JobNameTest : public PageTest {
  protected:
    JobNameTest() { StoreName(1, "報告"); }

    INT_PTR Run(std::vector<ModalDialog::Step> steps) {
        const ModalDialog user(std::move(steps));
        return DoJobNameDialog(Sheet(), &block);
    }
    // One step, and Cancel.
    void Look(ModalDialog::Step step) { EXPECT_EQ(Run({std::move(step), Cancel}), IDCANCEL); }

    static void Cancel(HWND dialog) { ClickButton(dialog, IDCANCEL); }
    static void Ok(HWND dialog) { ClickButton(dialog, IDOK); }
    static std::string Shown(HWND dialog) { return WindowText(GetDlgItem(dialog, kEdit)); }
    static bool CanType(HWND dialog) { return IsWindowEnabled(GetDlgItem(dialog, kEdit)); }
    // The radio buttons that are checked.
    static std::vector<int> Checked(HWND dialog) {
        std::vector<int> checked;
        for (const int radio : {kAutomatic, kEntered}) {
            if (IsDlgButtonChecked(dialog, radio) == BST_CHECKED)
                checked.push_back(radio);
        }
        return checked;
    }
};
