// A dialog of a real module, on a printer of the spooler, worked as a user does.
#pragma once

#include "tests/pages/modal_dialog.h"
#include "tests/support/message_box.h"
#include "tests/support/spooler_printer.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

using Steps = std::vector<ModalDialog::Step>;

// A value as the registry has it.
struct StoredBytes {
    DWORD type = REG_NONE;
    std::string bytes;
    bool operator==(const StoredBytes&) const = default;
};

inline StoredBytes Text(const std::string& text) {
    return {REG_SZ, text + '\0'};
}

inline StoredBytes Number(DWORD number) {
    return {REG_DWORD, {reinterpret_cast<const char*>(&number), sizeof number}};
}

inline std::ostream& operator<<(std::ostream& out, const StoredBytes& value) {
    return out << "type " << value.type << ", " << value.bytes.size() << " bytes "
               << value.bytes.substr(0, 80);
}

class CompanionDialogTest : public testing::Test {
  protected:
    static constexpr std::size_t kMegabyte = 1 << 20;

    // Nothing if the printer has no such data.
    std::optional<StoredBytes> PrinterData(const char* name) const {
        StoredBytes value{REG_NONE, std::string(2 * kMegabyte, '\0')};
        DWORD size = 0;
        if (GetPrinterDataExA(printer.Handle(), "PrinterDriverData", name, &value.type,
                              reinterpret_cast<BYTE*>(value.bytes.data()),
                              static_cast<DWORD>(value.bytes.size()), &size) != ERROR_SUCCESS)
            return std::nullopt;
        value.bytes.resize(size);
        return value;
    }

    // The texts of the controls, and the message box that an action brings.
    static std::string TextOf(HWND dialog, int control) {
        return message_box_detail::TextOf(GetDlgItem(dialog, control));
    }
    static bool IsEnabled(HWND dialog, int control) { return IsWindowEnabled(GetDlgItem(dialog, control)); }
    static bool IsChecked(HWND dialog, int control) {
        return IsDlgButtonChecked(dialog, control) == BST_CHECKED;
    }
    // Their texts are UTF-16 then, and not of the code page.
    static void ExpectWideEdits(HWND dialog, const std::vector<int>& edits) {
        for (const int edit : edits)
            EXPECT_TRUE(IsWindowUnicode(GetDlgItem(dialog, edit))) << edit;
    }
    static MessageBoxSeen BoxAfter(const std::function<void()>& action) {
        auto box = AnswerNextMessageBox();
        action();
        return box.get();
    }
    static MessageBoxSeen BoxAfterOk(HWND dialog) {
        return BoxAfter([dialog] { ClickButton(dialog, IDOK); });
    }
    // Where the focus is and that all of its text is selected.
    static void ExpectAtText(HWND dialog, int control) {
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), control);
        DWORD begin = 99;
        DWORD end = 99;
        SendDlgItemMessageA(dialog, control, EM_GETSEL, reinterpret_cast<WPARAM>(&begin),
                            reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(begin, 0u);
        EXPECT_EQ(end, static_cast<DWORD>(GetWindowTextLengthW(GetDlgItem(dialog, control))));
    }

    static void Ok(HWND dialog) { ClickButton(dialog, IDOK); }
    static void Cancel(HWND dialog) { ClickButton(dialog, IDCANCEL); }
    static void Escape(HWND) { PressKey(VK_ESCAPE); }
    static void Return(HWND) { PressKey(VK_RETURN); }
    static void CloseBox(HWND dialog) { SendMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); }

    const SpoolerPrinter printer{"Companion test"};
};
