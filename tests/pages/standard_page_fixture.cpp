#include "tests/pages/standard_page_fixture.h"

#include <algorithm>

namespace {

constexpr struct {
    int keyword;
    WORD options;
} kOptions[] = {
    {2, 2},    // PageOrientation
    {3, 6},    // NUP
    {4, 8},    // Tray
    {12, 50},  // ChgPrintPaperSizeType
    {13, 5},   // FittenToPaper
    {104, 5},  // DuplexMode
    {106, 5},  // OutputTray
    {108, 3},  // OffsetMode
    {111, 22}, // StapleMode
    {112, 6},  // Punch
    {114, 11}, // Fold
    {138, 2},  // ColorMode
};

} // namespace

StandardPageTest::StandardPageTest() {
    for (const auto& bound : kOptions)
        Bind(bound.keyword, bound.options);
    page = Open(1066, StandardPageProc);
}

void StandardPageTest::FitWholeFinisher() {
    for (const char* part :
         {"doublePunch", "triplePunch", "quadPunch", "singleTop", "doubleStitch", "saddleFoldStaple",
          "singleStitch", "quadStitch", "saddleFoldNoStaple", "zFold", "triFoldC", "triFoldZ", "offset"})
        FitFinisher(std::string(part) + "?True");
}

int StandardPageTest::Row(int id) const {
    return static_cast<int>(SendMessageA(Control(id), CB_GETCURSEL, 0, 0));
}

int StandardPageTest::RowCount(int id) const {
    return static_cast<int>(SendMessageA(Control(id), CB_GETCOUNT, 0, 0));
}

void StandardPageTest::Select(int id, int row) const {
    SendMessageA(Control(id), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

int StandardPageTest::CheckedOrientation() const {
    int checked = 0;
    for (const int button : {6000, 6001, 6002}) {
        if (IsChecked(button))
            checked = checked == 0 ? button : -1;
    }
    return checked;
}

HIMAGELIST StandardPageTest::ImagesOf(int id) const {
    return reinterpret_cast<HIMAGELIST>(SendMessageA(Control(id), CBEM_GETIMAGELIST, 0, 0));
}

std::vector<int> StandardPageTest::RowImages(int id) const {
    std::vector<int> images;
    for (int row = 0; row < RowCount(id); ++row) {
        COMBOBOXEXITEMA item{};
        item.mask = CBEIF_IMAGE | CBEIF_SELECTEDIMAGE;
        item.iItem = row;
        item.iImage = -77;
        SendMessageA(Control(id), CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
        EXPECT_EQ(item.iImage, item.iSelectedImage) << "control " << id << " row " << row;
        images.push_back(item.iImage);
    }
    return images;
}

std::vector<int> StandardPageTest::RowMarks(int id) const {
    std::vector<int> marks;
    for (int row = 0; row < RowCount(id); ++row)
        marks.push_back(
            static_cast<int>(SendMessageA(Control(id), CB_GETITEMDATA, static_cast<WPARAM>(row), 0)));
    return marks;
}

void StandardPageTest::Add(DeviceRecordMap& records, std::string_view pair) {
    records.AddLine(static_cast<std::int32_t>(records.All().size()), "?" + std::string(pair));
}

Bank StandardPageWhole::CurrentBank() {
    Bank bank;
    for (int keyword = 0; keyword < 327; ++keyword)
        bank[keyword] = Current(keyword);
    return bank;
}

void StandardPageWhole::SetEach(std::uint32_t value) {
    for (const int keyword : kKeywords)
        ExportedFunc_SetCurrent(keyword, value);
}

std::vector<std::string> StandardPageWhole::Functions(const MainLog& log,
                                                      const std::vector<std::string>& among) {
    std::vector<std::string> functions;
    for (const std::string& message : log.Messages()) {
        const std::string name = message.substr(message.find_last_of(' ') + 1);
        if (std::ranges::find(among, name) != among.end())
            functions.push_back(name);
    }
    return functions;
}

BuiltStandardPage::BuiltStandardPage() {
    FitWholeFinisher();
    EXPECT_EQ(Page().Initialize(&block, 0), 1);
    ExportedFunc_SetActive(page);
}
