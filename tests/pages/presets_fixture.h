// The standard page with favourites: real files, the standard settings of the product, a printer with forms.
#pragma once

#include "settings/SettingManager.h"
#include "settings/print_option_access.h"
#include "tests/pages/standard_page_driver.h"
#include "tests/session/fake_spooler.h"
#include "tests/support/traces.h"

#include <string>
#include <string_view>
#include <vector>

using ddb::FieldId;

class PresetsTest : public StandardPageDriver {
  protected:
    static constexpr int kPresets = 1300;
    static constexpr int kSave = 1214;
    static constexpr int kDelete = 1215;
    static constexpr int kFiles = 1398;
    static constexpr int kPageSizes = 5000;

    PresetsTest();
    ~PresetsTest() override;

    // Opens the page as a fresh sheet does: the present settings are the standard ones. These files are in
    // the favourite directory then.
    void OpenPage();
    void OpenPage(const std::vector<CFavoriteSetting>& favorites);

    static CSettingManager& Manager() { return *CSettingManager::GetSettingManager(); }
    // A favourite of the standard settings, of the document size A4.
    static CFavoriteSetting Favorite(std::string_view name, std::string_view comment = {});
    static void Put(CSettingInfo& setting, FieldId field, std::int32_t value);
    static void PutText(CSettingInfo& setting, FieldId field, std::string_view text);
    static std::int32_t Get(const CSettingInfo& setting, FieldId field);
    static std::string GetText(const CSettingInfo& setting, FieldId field);

    // The favourite directory, and the path of a favourite's file in it.
    const std::string& Directory() const { return m_directory; }
    std::string FileOf(std::string_view name) const {
        return m_directory + "\\" + std::string(name) + ".pfk";
    }
    void WriteFavorite(const CFavoriteSetting& favorite) const;

    std::vector<std::string> Presets() const { return RowsOf(Control(kPresets)); }
    std::string Selected() const;
    int Number(int row) const;
    int Image(int row) const;
    bool CanDelete() const { return IsWindowEnabled(Control(kDelete)) != 0; }
    // As a user chooses it: the row, and both notifications.
    void ChoosePreset(std::string_view text);
    // Changes and changes back a setting that is standard as 0.
    void ChangeDuplex() { Choose(6010, 1); }
    void ChangeDuplexBack() { Choose(6010, 0); }

    static void SetCredentials();
    // "user password account" as the store has them.
    static std::string Credentials();

    FakeSpooler spooler;

  private:
    Traces m_traces;
    std::string m_directory;
};
