#include "tests/pages/presets_fixture.h"

#include "Common/text.h"
#include "pages/controls.h"
#include "pages/standardpage.h"
#include "session/form_names.h"
#include "settings/FavoriteFileManager.h"
#include "settings/preset_settings.h"
#include "tests/support/own_folder.h"

#include <commctrl.h>

#include <algorithm>
#include <filesystem>

namespace {

constexpr char kPrinter[] = "Orvane X100";

} // namespace

PresetsTest::PresetsTest() {
    m_directory = m_traces.MakeDirectories(FolderPath(CSIDL_COMMON_DOCUMENTS),
                                           {"Zephra", "KP Controller", "Orvane X100", "favorite"});
    spooler.forms = {"Letter", "A4", "A3", "PostScript カスタム ページ サイズ"};
    ReadFormNames(kPrinter);
    Manager().LoadDefaultSettingInfo((OwnFolder() / "ZRPDS31J_def").string().c_str());
}

PresetsTest::~PresetsTest() {
    spooler.forms.clear();
    ReadFormNames(kPrinter);
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(m_directory, ignored)) {
        SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
        std::filesystem::remove_all(entry.path(), ignored);
    }
}

void PresetsTest::OpenPage() {
    OpenPage({});
}

void PresetsTest::OpenPage(const std::vector<CFavoriteSetting>& favorites) {
    for (const CFavoriteSetting& favorite : favorites)
        WriteFavorite(favorite);
    TakePreset(Manager(), Manager().Default().PrintOption());
    OpenWith();
}

CFavoriteSetting PresetsTest::Favorite(std::string_view name, std::string_view comment) {
    CFavoriteSetting favorite;
    CopyText(favorite.Name, name);
    CopyText(favorite.Comment, comment);
    CopyText(favorite.PageSize, "A4");
    favorite.FileVer = 2;
    favorite.IotVer = 10;
    favorite.PrintOption().CopyFrom(Manager().Default().PrintOption());
    return favorite;
}

void PresetsTest::Put(CSettingInfo& setting, FieldId field, std::int32_t value) {
    SetI32(setting.PrintOption(), FieldAt(field), value);
}

void PresetsTest::PutText(CSettingInfo& setting, FieldId field, std::string_view text) {
    SetText(setting.PrintOption(), FieldAt(field), text);
}

std::int32_t PresetsTest::Get(const CSettingInfo& setting, FieldId field) {
    return GetI32(setting.PrintOption(), FieldAt(field));
}

std::string PresetsTest::GetText(const CSettingInfo& setting, FieldId field) {
    return ddb::GetText(setting.PrintOption(), FieldAt(field));
}

void PresetsTest::WriteFavorite(const CFavoriteSetting& favorite) const {
    EXPECT_EQ(CFavoriteFileManager({}).SaveFavoriteFromPath(favorite, FileOf(favorite.Name.data()).c_str()),
              1);
}

std::string PresetsTest::Selected() const {
    return RowText(Control(kPresets), Row(kPresets));
}

int PresetsTest::Number(int row) const {
    return static_cast<int>(SendMessageA(Control(kPresets), CB_GETITEMDATA, static_cast<WPARAM>(row), 0));
}

int PresetsTest::Image(int row) const {
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_IMAGE | CBEIF_SELECTEDIMAGE;
    item.iItem = row;
    item.iImage = -77;
    SendMessageA(Control(kPresets), CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(item.iImage, item.iSelectedImage) << row;
    return item.iImage;
}

void PresetsTest::ChoosePreset(std::string_view text) {
    const std::vector<std::string> rows = Presets();
    const auto row = std::ranges::find(rows, text);
    ASSERT_NE(row, rows.end()) << text;
    SendMessageA(Control(kPresets), CB_SETCURSEL, static_cast<WPARAM>(row - rows.begin()), 0);
    EXPECT_EQ(Send(kPresets, CBN_SELENDOK), 1);
    EXPECT_EQ(Send(kPresets, CBN_CLOSEUP), 1);
}

void PresetsTest::SetCredentials() {
    ExportedFunc_SetAuthJobUserId("USER-OF-THE-JOB");
    ExportedFunc_SetAuthJobPassword("PASSWORD-OF-THE-JOB");
    ExportedFunc_SetAuthJobAccount("ACCOUNT-OF-THE-JOB");
}

std::string PresetsTest::Credentials() {
    char user[1024] = {}, password[1024] = {}, account[1024] = {};
    ExportedFunc_GetAuthJobUserId(user);
    ExportedFunc_GetAuthJobPassword(password);
    ExportedFunc_GetAuthJobAccount(account);
    return std::string(user) + " " + password + " " + account;
}
