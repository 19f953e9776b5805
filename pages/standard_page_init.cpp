// Building the standard page's controls.
#include "Common/ProfileInfo.h"
#include "Common/log.h"
#include "pages/controls.h"
#include "pages/own_changes.h"
#include "pages/page_images.h"
#include "pages/punch_rows.h"
#include "pages/standard_page_rows.h"
#include "pages/standardpage.h"
#include "pages/warning_rows.h"
#include "resources/resource.h"
#include "session/keyword.h"
#include "session/session.h"

#include <algorithm>
#include <array>
#include <exception>
#include <vector>

namespace {

using ConfigQuery = int (*)(int* list, int listCount, const DeviceRecordMap& records);

// Which options of a setting the device has fitted.
struct DeviceConfig {
    ConfigQuery query = nullptr;
    DeviceRecordMap CProfileInfo::*records = nullptr;
    bool hidesControl = false; // if no option but the first is fitted
    bool marksRows = false;    // that are not fitted, so that they can't be chosen
};

enum class RowImages {
    None,
    Strip,
    NotFittedOnly, // and none at all if everything is fitted
};

// An index behind the one image of its list: the row shows none.
constexpr int kNoImage = 1;

constexpr int kColorModelImages[] = {1, 0};
constexpr int kDuplexImages[] = {0, 2, 4, 6, 8};
constexpr int kStapleImages[] = {0, 1, 2, 3, 4, 1, 5, 6, 7, 8, 7, 10, 11, 9, 12, 13, 14, 15, 16, 17, 18, 19};
constexpr int kPunchImages[] = {0, 1, 2, 3, 4, 1, 5, 6, 7, 8, 5, 9, 10, 11, 12, 9};
constexpr int kFoldImages[] = {0, 2, 3, 1, 9, 8, 8, 4, 5, 6, 7};

constexpr WPARAM kCopiesDigits = 4;

constexpr std::array kButtonsByOption{IDC_ORIENTATION_ROTATED, IDC_ORIENTATION_PORTRAIT,
                                      IDC_ORIENTATION_LANDSCAPE};

int OptionRowCount(SessionBlock* session, int keyword) {
    return keyword == keyword::Punch ? static_cast<int>(PunchTable::kRowCount)
                                     : CSession(session).DRVGetKeywordNumOptions(keyword);
}

// 1 or 0 for each row. Where the device can't be asked, everything counts as fitted.
std::vector<int> FittedRows(const DeviceConfig& config, CProfileInfo* profile, int rowCount) {
    std::vector<int> fitted(static_cast<std::size_t>(std::max(rowCount, 0)), 1);
    if (!profile)
        return fitted;
    try {
        config.query(fitted.data(), static_cast<int>(fitted.size()), profile->*config.records);
    } catch (const std::exception& error) {
        ZR_LOG("%s\n", error.what());
        std::ranges::fill(fitted, 1);
    }
    return fitted;
}

} // namespace

// How a combo box is built: which images its rows have, and what the device's fittings do to it.
struct StandardPageInit {
    PageRowId row;
    RowImages images = RowImages::None;
    ImageStrip strip = ImageStrip::Count;
    std::span<const int> imageIndexes{};
    HIMAGELIST CStandardPageDlg::*imageList = nullptr;
    DeviceConfig config{};
};

namespace {

constexpr StandardPageInit kFitSize{.row = PageRowId::FitSize};
constexpr StandardPageInit kDuplex{.row = PageRowId::Duplex,
                                   .images = RowImages::Strip,
                                   .strip = ImageStrip::Duplex,
                                   .imageIndexes = kDuplexImages,
                                   .imageList = &CStandardPageDlg::hImgDuplex};
constexpr StandardPageInit kColorModel{.row = PageRowId::ColorModel,
                                       .images = RowImages::Strip,
                                       .strip = ImageStrip::ColorModel,
                                       .imageIndexes = kColorModelImages,
                                       .imageList = &CStandardPageDlg::hImgColorModel};
constexpr StandardPageInit kSource{
    .row = PageRowId::Source,
    .images = RowImages::NotFittedOnly,
    .config = {&CProfileInfo::GetTrayConfig, &CProfileInfo::m_FeederInfo, false, true}};
constexpr StandardPageInit kOutputTray{
    .row = PageRowId::OutputTray,
    .images = RowImages::NotFittedOnly,
    .config = {&CProfileInfo::GetOutputConfig, &CProfileInfo::m_StackerInfo, false, true}};
constexpr StandardPageInit kJog{
    .row = PageRowId::Jog,
    .config = {&CProfileInfo::GetJogConfig, &CProfileInfo::m_FinisherInfo, true, false}};
constexpr StandardPageInit kStaple{
    .row = PageRowId::Staple,
    .images = RowImages::Strip,
    .strip = ImageStrip::Staple,
    .imageIndexes = kStapleImages,
    .imageList = &CStandardPageDlg::hImgStaple,
    .config = {&CProfileInfo::GetStapleConfig, &CProfileInfo::m_FinisherInfo, true, true}};
constexpr StandardPageInit kPunch{
    .row = PageRowId::Punch,
    .images = RowImages::Strip,
    .strip = ImageStrip::Punch,
    .imageIndexes = kPunchImages,
    .config = {&CProfileInfo::GetPunchConfig, &CProfileInfo::m_FinisherInfo, true, true}};
constexpr StandardPageInit kFold{
    .row = PageRowId::Fold,
    .images = RowImages::Strip,
    .strip = ImageStrip::Fold,
    .imageIndexes = kFoldImages,
    .imageList = &CStandardPageDlg::hImgFold,
    .config = {&CProfileInfo::GetFoldConfig, &CProfileInfo::m_FinisherInfo, true, true}};

} // namespace

bool CStandardPageDlg::ShowIfFitted(const PageRow& row, std::span<const int> fitted) {
    const bool isFitted = IsAllWarning(fitted.data(), static_cast<int>(fitted.size())) != 0;
    const int command = isFitted ? SW_SHOW : SW_HIDE;
    ShowWindow(GetDlgItem(m_hwnd, row.label), command);
    ShowWindow(GetDlgItem(m_hwnd, row.control), command);
    return isFitted;
}

std::vector<int> CStandardPageDlg::AttachRowImages(const StandardPageInit& init,
                                                   std::span<const int> fitted) {
    const HWND combo = GetDlgItem(m_hwnd, RowOf(init.row).control);
    HIMAGELIST list = nullptr;
    std::vector<int> indexes;
    if (init.images == RowImages::Strip) {
        list = ProcessPageImages().Of(init.strip, m_hIconWarning_24);
        indexes.assign(init.imageIndexes.begin(), init.imageIndexes.end());
    } else if (init.images == RowImages::NotFittedOnly) {
        list = m_hImgWarningList_16;
        indexes.assign(fitted.size(), kNoImage);
    }
    const int count = static_cast<int>(std::min(indexes.size(), fitted.size()));
    const bool isMarked =
        init.config.query && SetWarningIndex(combo, count, fitted.data(), indexes.data(), 0, list);
    if (init.images == RowImages::NotFittedOnly && !isMarked)
        list = nullptr;
    if (init.imageList)
        this->*init.imageList = list;
    AttachImages(combo, list);
    if (!list)
        indexes.clear();
    return indexes;
}

void CStandardPageDlg::InitRow(SessionBlock* session, const StandardPageInit& init, int useDefault) {
    const OwnChanges writing;
    const PageRow& row = RowOf(init.row);
    std::vector<int> fitted;
    if (init.config.query)
        fitted = FittedRows(init.config, profile, OptionRowCount(session, row.keyword));
    if (init.config.hidesControl && !ShowIfFitted(row, fitted))
        return;
    const std::vector<int> images =
        init.images == RowImages::None ? std::vector<int>{} : AttachRowImages(init, fitted);
    InitComboBox(session, row.keyword, row.label, useDefault, images);
    if (init.config.marksRows)
        MarkDisabledOptions(session, GetDlgItem(m_hwnd, row.control), row.keyword, fitted);
    UpdateRow(row, useDefault);
}

void CStandardPageDlg::InitFitSize(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    InitRow(session, kFitSize, useDefault);
}

void CStandardPageDlg::InitDuplex(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    InitRow(session, kDuplex, useDefault);
}

void CStandardPageDlg::InitColorModel(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    InitRow(session, kColorModel, useDefault);
}

void CStandardPageDlg::InitSource(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    InitRow(session, kSource, useDefault);
}

void CStandardPageDlg::InitOutputTray(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    InitRow(session, kOutputTray, useDefault);
}

void CStandardPageDlg::InitJog(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    InitRow(session, kJog, useDefault);
}

void CStandardPageDlg::InitStaple(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    InitRow(session, kStaple, useDefault);
}

void CStandardPageDlg::InitPunch(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    InitRow(session, kPunch, useDefault);
}

void CStandardPageDlg::InitFold(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    InitRow(session, kFold, useDefault);
}

void CStandardPageDlg::InitCaptioned(PageRowId id, int useDefault) {
    const PageRow& row = RowOf(id);
    SetLabel(row.label, row.keyword);
    UpdateRow(row, useDefault);
}

void CStandardPageDlg::InitOnCenter(SessionBlock*, int useDefault) {
    ZR_LOG_ENTRY();
    InitCaptioned(PageRowId::OnCenter, useDefault);
}

void CStandardPageDlg::InitSort(SessionBlock*, int useDefault) {
    ZR_LOG_ENTRY();
    InitCaptioned(PageRowId::Sort, useDefault);
}

void CStandardPageDlg::InitPageOrder(SessionBlock*, int useDefault) {
    ZR_LOG_ENTRY();
    InitCaptioned(PageRowId::PageOrder, useDefault);
}

void CStandardPageDlg::InitNUP(SessionBlock*, int useDefault) {
    ZR_LOG_ENTRY();
    InitCaptioned(PageRowId::NUP, useDefault);
}

void CStandardPageDlg::InitCopies(SessionBlock*, int useDefault) {
    ZR_LOG_ENTRY();
    const OwnChanges writing;
    SendDlgItemMessageA(m_hwnd, IDC_COPIES_SPIN, UDM_SETRANGE, 0, MAKELPARAM(kMostCopies, kLeastCopies));
    SendDlgItemMessageA(m_hwnd, IDC_COPIES, EM_LIMITTEXT, kCopiesDigits, 0);
    InitCaptioned(PageRowId::Copies, useDefault);
}

void CStandardPageDlg::InitOrientation(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    const OwnChanges writing;
    const PageRow& row = RowOf(PageRowId::Orientation);
    InitRadioButton(session, row.keyword, row.label, kButtonsByOption, useDefault);
    for (const int button : kButtonsByOption) {
        CheckDlgButton(m_hwnd, button, BST_UNCHECKED);
        ShowWindow(GetDlgItem(m_hwnd, button), SW_SHOW);
    }
    UpdateRow(row, useDefault);
}
