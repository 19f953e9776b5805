// The output paper size on the standard page of a sheet, and what follows from it.
#pragma once

#include "pages/controls.h"
#include "pages/standardpage.h"
#include "tests/pages/modal_dialog.h"
#include "tests/pages/page_fixture.h"
#include "tests/support/message_box.h"

#include <functional>
#include <ostream>
#include <utility>
#include <vector>

inline constexpr int kPageTemplate = 1066;
inline constexpr int kCombo = 5001;
inline constexpr int kLabel = 1295;
inline constexpr int kEditButton = 1337;

inline constexpr int kOutputSize = 12;
inline constexpr int kImpositionMode = 134;
inline constexpr int kImpositionCustomMode = 135;
inline constexpr int kFinishSheetDirection = 244;
inline constexpr int kSheetDirection = 249;
inline constexpr int kFinishFixedForm = 299;
inline constexpr int kFixedForm = 300;

// Rows of the control with the tag numbers of what they offer.
inline constexpr int kAsDocument = 0; // 0
inline constexpr int kA3 = 2;         // 1
inline constexpr int kA4 = 3;         // 3
inline constexpr int kCover = 12;     // 135, without a row in the table
inline constexpr int kA2 = 47;        // 30
inline constexpr int kCustom = 49;    // 20

// What follows from an output paper size.
struct Followed {
    std::uint32_t fixedForm, finishFixedForm;
    std::uint32_t sheetWidth, sheetHeight;
    std::uint32_t paperWidth, paperLength;
    std::uint32_t repeatX, repeatY, sheetDirection;
    std::uint32_t finishedWidth, finishedHeight;
    bool operator==(const Followed&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Followed& f) {
    return out << "form " << f.fixedForm << " " << f.finishFixedForm << ", sheet " << f.sheetWidth << " "
               << f.sheetHeight << ", paper " << f.paperWidth << " " << f.paperLength << ", repeat "
               << f.repeatX << " " << f.repeatY << " " << f.sheetDirection << ", finished " << f.finishedWidth
               << " " << f.finishedHeight;
}

inline constexpr Followed kBefore{5, 6, 1001, 1002, 1003, 1004, 3, 3, 1, 1005, 1006};

class OutputPaperSize : public PageTest {
  protected:
    OutputPaperSize() { Write(kBefore); }

    HWND OpenWith(std::uint32_t current, std::uint32_t mode = 0, std::uint32_t customMode = 0) {
        ExportedFunc_SetCurrent(kOutputSize, current);
        SetImposition(mode, customMode);
        page = Open(kPageTemplate, StandardPageProc);
        combo = GetDlgItem(page, kCombo);
        return page;
    }
    static void SetImposition(std::uint32_t mode, std::uint32_t customMode) {
        ExportedFunc_SetCurrent(kImpositionMode, mode);
        ExportedFunc_SetCurrent(kImpositionCustomMode, customMode);
    }

    // As a user does: the row first, the notification after it.
    LRESULT Choose(int row) {
        SelectRow(combo, static_cast<std::uint32_t>(row));
        return Command(page, kCombo, CBN_SELCHANGE);
    }
    MessageBoxSeen ChooseAndAnswer(int row, int button, std::function<void()> behindBox = {}) {
        auto box = AnswerNextMessageBox(button, std::move(behindBox));
        Choose(row);
        return box.get();
    }
    // The dialog that comes of the choice is worked by these steps.
    bool ChooseAndEdit(int row, std::vector<ModalDialog::Step> steps) {
        const ModalDialog user(std::move(steps));
        Choose(row);
        return user.WasOpen();
    }

    bool IsButtonShown() const {
        return (GetWindowLongA(GetDlgItem(page, kEditButton), GWL_STYLE) & WS_VISIBLE) != 0;
    }

    static void Write(const Followed& values) {
        ExportedFunc_SetCurrent(kFixedForm, values.fixedForm);
        ExportedFunc_SetCurrent(kFinishFixedForm, values.finishFixedForm);
        ExportedFunc_SetSheetSizeWidth(values.sheetWidth);
        ExportedFunc_SetSheetSizeHeight(values.sheetHeight);
        ExportedFunc_SetChgPrintPaperSizeWidth(values.paperWidth);
        ExportedFunc_SetChgPrintPaperSizeLength(values.paperLength);
        ExportedFunc_SetLayoutRepeatX(values.repeatX);
        ExportedFunc_SetLayoutRepeatY(values.repeatY);
        ExportedFunc_SetCurrent(kSheetDirection, values.sheetDirection);
        ExportedFunc_SetFinishedSizeWidth(values.finishedWidth);
        ExportedFunc_SetFinishedSizeHeight(values.finishedHeight);
    }
    static Followed Read() {
        Followed values{};
        values.fixedForm = Current(kFixedForm);
        values.finishFixedForm = Current(kFinishFixedForm);
        ExportedFunc_GetSheetSizeWidth(&values.sheetWidth);
        ExportedFunc_GetSheetSizeHeight(&values.sheetHeight);
        ExportedFunc_GetChgPrintPaperSizeWidth(&values.paperWidth);
        ExportedFunc_GetChgPrintPaperSizeLength(&values.paperLength);
        ExportedFunc_GetLayoutRepeatX(&values.repeatX);
        ExportedFunc_GetLayoutRepeatY(&values.repeatY);
        values.sheetDirection = Current(kSheetDirection);
        ExportedFunc_GetFinishedSizeWidth(&values.finishedWidth);
        ExportedFunc_GetFinishedSizeHeight(&values.finishedHeight);
        return values;
    }

    HWND page = nullptr;
    HWND combo = nullptr;
};
