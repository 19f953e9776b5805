// The standard page whose device has everything that a test says, worked through its rows' own functions.
#pragma once

#include "Common/ProfileInfo.h"
#include "pages/standardpage.h"
#include "tests/pages/page_fixture.h"
#include "tests/support/main_log.h"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

class StandardPageTest : public PageTest {
  protected:
    // Opens the page of a device that has nothing fitted beyond what each device has.
    StandardPageTest();

    // The page as one message has it.
    CStandardPageDlg Page() { return CStandardPageDlg(page, &device); }
    // Adds a fitting, "key?value" each, to the device.
    void FitFeeder(std::string_view pair) { Add(device.m_FeederInfo, pair); }
    void FitStacker(std::string_view pair) { Add(device.m_StackerInfo, pair); }
    void FitFinisher(std::string_view pair) { Add(device.m_FinisherInfo, pair); }
    // Every staple, punch, fold and offset option.
    void FitWholeFinisher();

    HWND Control(int id) const { return GetDlgItem(page, id); }
    void Remove(int id) { DestroyWindow(Control(id)); }
    int Row(int id) const;
    int RowCount(int id) const;
    void Select(int id, int row) const;
    bool IsShown(int id) const { return (GetWindowLongA(Control(id), GWL_STYLE) & WS_VISIBLE) != 0; }
    bool IsEnabled(int id) const { return IsWindowEnabled(Control(id)) != 0; }
    bool IsChecked(int id) const { return IsDlgButtonChecked(page, id) == BST_CHECKED; }
    // The number in the edit field of the copies.
    std::string Copies() const { return CaptionOf(page, 6004); }
    // The one checked button of the orientation, 0 for none, -1 for several.
    int CheckedOrientation() const;

    HIMAGELIST ImagesOf(int id) const;
    // The images of the rows, checked to be those of the selected rows too.
    std::vector<int> RowImages(int id) const;
    // The data words of the rows.
    std::vector<int> RowMarks(int id) const;

    HWND page = nullptr;
    CProfileInfo device;

  private:
    void Add(DeviceRecordMap& records, std::string_view pair);
};

using Bank = std::map<int, std::uint32_t>;

// The settings that the page shows, in the order of the transfer between controls and bank.
inline constexpr std::array kKeywords{12,  13,  14,  104, 138, 3,   2,   1,  4,
                                      106, 108, 110, 109, 111, 112, 113, 114};

// The settings of the page together.
class StandardPageWhole : public StandardPageTest {
  protected:
    static Bank CurrentBank();
    static void SetEach(std::uint32_t value);
    // The functions that logged, in order.
    static std::vector<std::string> Functions(const MainLog& log, const std::vector<std::string>& among);
};

// With everything of the finisher, and active.
class BuiltStandardPage : public StandardPageWhole {
  protected:
    BuiltStandardPage();
};

// Some numbers that no list has a row for.
inline constexpr std::uint32_t kHostileValues[] = {50, 65535, 0x10000000, 0xFFFFFFFF};
