// The media type dialogs opened for real, with the steps of a user.
#pragma once

#include "Common/ProfileInfo.h"
#include "pages/MediaTypeDlg.h"
#include "tests/pages/modal_dialog.h"
#include "tests/pages/page_fixture.h"

#include <commctrl.h>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace media_control {
inline constexpr int WeightValueSpin = 1024;
inline constexpr int SequenceSpin = 1025;
inline constexpr int Defaults = 1012;
inline constexpr int Color = 1258;
inline constexpr int PaperType = 1286;
inline constexpr int Coating = 1287;
inline constexpr int Drilled = 1288;
inline constexpr int Gloss = 1289;
inline constexpr int Preprinted = 1290;
inline constexpr int Weight = 1303;
inline constexpr int WeightLabel = 1304;
inline constexpr int Duplex = 1315;
inline constexpr int DuplexLabel = 1325;
inline constexpr int FromAutoTray = 1328;
inline constexpr int WeightValue = 1342;
inline constexpr int SequenceLabel = 1374;
inline constexpr int Sequence = 1375;
inline constexpr int NumberLabel = 1400;
inline constexpr int NumberSpin = 1401;
inline constexpr int SequenceRange = 1408;
inline constexpr int WeightValueRange = 1409;
inline constexpr int PaperTypeLabel = 60000;
inline constexpr int ColorLabel = 60001;
inline constexpr int CoatingLabel = 60002;
inline constexpr int DrilledLabel = 60003;
inline constexpr int GlossLabel = 60004;
inline constexpr int PreprintedLabel = 60005;
} // namespace media_control

namespace media_keyword {
inline constexpr int PaperTypeD = 15;
inline constexpr int MediaTypeWeight = 16;
inline constexpr int PaperColor = 17;
inline constexpr int MediaTypePreprinted = 18;
inline constexpr int MediaTypeDrilled = 19;
inline constexpr int MediaTypeTabbed = 20;
inline constexpr int MediaTypeGlossFine = 21;
inline constexpr int MediaTypeCoatingMaterial = 22;
inline constexpr int AutoTraySettingToBypass = 24;
inline constexpr int PaperTypeBypass = 25;
inline constexpr int MediaTypeWeightBypass = 26;
inline constexpr int PaperColorBypass = 27;
inline constexpr int MediaTypePreprintedBypass = 28;
inline constexpr int MediaTypeDrilledBypass = 29;
inline constexpr int MediaTypeTabbedBypass = 30;
inline constexpr int MediaTypeGlossFineBypass = 31;
inline constexpr int MediaTypeCoatingMaterialBypass = 32;
inline constexpr int MsiDuplexMode = 34;
inline constexpr int StapleMode = 111;
inline constexpr int Punch = 112;
inline constexpr int PunchHoles = 113;
inline constexpr int Fold = 114;
inline constexpr int MixSizePrint = 307;
} // namespace media_keyword

constexpr int kPaperTypeCustomNumberBypass = 338; // a value number

constexpr int kAllFieldsTemplate = 4003;
constexpr int kBypassTemplate = 4005;
constexpr int kAutoTrayTemplate = 4006;

// A dialog that tells how its start went, and that may lack controls of its template or have further combo
// boxes.
template <class Dialog>
struct Watched : Dialog {
    using Dialog::Dialog;

    int OnInitDialog() override {
        for (const int control : lacking)
            DestroyWindow(GetDlgItem(this->m_hwnd, control));
        for (const int control : further)
            CreateWindowA(WC_COMBOBOXEXA, "", WS_CHILD | CBS_DROPDOWNLIST, 0, 0, 10, 10, this->m_hwnd,
                          reinterpret_cast<HMENU>(static_cast<std::intptr_t>(control)), nullptr, nullptr);
        for (HWND child = GetWindow(this->m_hwnd, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            before[GetDlgCtrlID(child)] = PlaceOf(GetDlgCtrlID(child));
        return initResult = Dialog::OnInitDialog();
    }
    int OnDefault() override { return defaultResult = Dialog::OnDefault(); }

    // In the dialog's own coordinates; empty for a control that is missing.
    RECT PlaceOf(int control) const {
        RECT place{};
        if (const HWND window = GetDlgItem(this->m_hwnd, control)) {
            GetWindowRect(window, &place);
            MapWindowPoints(HWND_DESKTOP, this->m_hwnd, reinterpret_cast<POINT*>(&place), 2);
        }
        return place;
    }

    std::vector<int> lacking;
    std::vector<int> further;
    std::map<int, RECT> before;
    int initResult = -1;
    int defaultResult = -1;
};

using AutoTrayDialog = Watched<CMediaTypeDlgAutoTrayPRMT>;
using BypassDialog = Watched<CMediaTypeBypassTrayDlgPRMT>;

class MediaTypeTest : public PageTest {
  protected:
    using Step = ModalDialog::Step;

    MediaTypeTest();

    static INT_PTR Run(CMediaTypeDlg& dialog, std::vector<Step> steps);

    static void Press(HWND dialog, int button);
    static Step Pressing(int button);
    static void Choose(HWND dialog, int combo, int row);
    static Step Choosing(int combo, int row);
    static Step Keying(WPARAM key);
    // Leaves an edit control with this text.
    static void Leave(HWND dialog, int edit, const char* text);

    // A fold against a punch; a paper type has a part in it.
    static void MakeConflict();

    static int SelectedIn(HWND dialog, int combo);
    static bool IsEnabled(HWND dialog, int control);
    static bool IsShown(HWND dialog, int control);

    CProfileInfo profile;
};

std::uint32_t StoredSequence();
std::uint32_t StoredSequenceBypass();
std::uint32_t StoredWeightValue();
std::uint32_t StoredWeightValueBypass();
std::uint32_t StoredCustomNumber();
std::uint32_t StoredCustomNumberBypass();

// The whole list of paper types.
const std::vector<std::string>& PaperTypeTexts();
const std::vector<std::string>& WeightTexts();
