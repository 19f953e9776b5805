// The custom page size dialog of a session with a document's size of 210 by 297 mm.
#pragma once

#include "pages/CustomPageEditDlg.h"
#include "tests/pages/modal_dialog.h"
#include "tests/pages/page_fixture.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

inline constexpr int kWidth = 1330;
inline constexpr int kHeight = 1326;
inline constexpr int kWidthLimits = 1316;
inline constexpr int kHeightLimits = 1317;
inline constexpr int kInch = 1318;
inline constexpr int kMillimeter = 1319;
inline constexpr int kPoint = 1320;
inline constexpr int kDirectionLabel = 1407;
inline constexpr int kDirection = 1333;
inline constexpr int kOk = 1321;
inline constexpr int kCancel = 1322;
inline constexpr int kDefaults = 1331;

inline constexpr WORD kDocument = 1329;
inline constexpr WORD kOutput = 1337;

inline constexpr int kCustomPaperWidth = 301;
inline constexpr int kCustomPaperHeight = 302;
inline constexpr int kCustomPaperDirection = 303;
inline constexpr int kCustomChgPaperDirection = 304;

inline constexpr std::uint32_t kTag30Option = 47; // of ChgPrintPaperSizeType

using Texts = std::array<std::string, 2>;
using Sizes = std::array<std::uint32_t, 2>;

inline Texts Edits(HWND dialog) {
    return {CaptionOf(dialog, kWidth), CaptionOf(dialog, kHeight)};
}
inline Texts Limits(HWND dialog) {
    return {CaptionOf(dialog, kWidthLimits), CaptionOf(dialog, kHeightLimits)};
}

class CustomPageDialog : public PageTest {
  protected:
    CustomPageDialog() { SetDocument(210000, 297000); }

    static void SetDocument(std::uint32_t width, std::uint32_t height, std::uint32_t direction = 1) {
        ExportedFunc_SetCurrent(kCustomPaperWidth, width);
        ExportedFunc_SetCurrent(kCustomPaperHeight, height);
        ExportedFunc_SetCurrent(kCustomPaperDirection, direction);
    }
    static void SetOutput(std::uint32_t width, std::uint32_t height, std::uint32_t direction = 1) {
        ExportedFunc_SetChgPrintPaperSizeWidth(width);
        ExportedFunc_SetChgPrintPaperSizeLength(height);
        ExportedFunc_SetCurrent(kCustomChgPaperDirection, direction);
    }
    static Sizes Document() { return {Current(kCustomPaperWidth), Current(kCustomPaperHeight)}; }
    static Sizes Output() {
        Sizes sizes{};
        ExportedFunc_GetChgPrintPaperSizeWidth(&sizes[0]);
        ExportedFunc_GetChgPrintPaperSizeLength(&sizes[1]);
        return sizes;
    }

    INT_PTR Run(std::vector<ModalDialog::Step> steps, WORD editId = kDocument,
                std::optional<std::uint32_t> prior = {}) {
        auto popup = prior ? std::make_unique<CCustomPageEditDlg>(editId, &block, *prior)
                           : std::make_unique<CCustomPageEditDlg>(editId, &block);
        return RunModal(*popup, std::move(steps));
    }
    // One step, and Cancel.
    void Look(ModalDialog::Step step, WORD editId = kDocument, std::optional<std::uint32_t> prior = {}) {
        EXPECT_EQ(Run({std::move(step), [](HWND dialog) { ClickButton(dialog, kCancel); }}, editId, prior),
                  kCancel);
    }
    // What the edit shows once the text was typed and the edit left.
    std::string Left(int edit, const std::string& typed, int unit = kMillimeter) {
        std::string shown;
        Look([&](HWND dialog) {
            ClickButton(dialog, unit);
            TypeInto(dialog, edit, typed);
            MoveFocus(dialog, kDefaults);
            shown = CaptionOf(dialog, edit);
        });
        return shown;
    }
};
