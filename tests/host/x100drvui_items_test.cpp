// The items that the module hands to the plug-in, and what becomes of changed ones.
#include "x100drvui_fixture.h"

#include <algorithm>
#include <cstring>

namespace {

OPTITEM* FindItem(OEMCUIPPARAM* param, const char* keyword) {
    for (DWORD i = 0; i < param->cDrvOptItems; ++i) {
        auto* data = reinterpret_cast<USERDATA*>(param->pDrvOptItems[i].UserData);
        if (data && std::string_view(data->pKeyWordName) == keyword)
            return &param->pDrvOptItems[i];
    }
    return nullptr;
}

OPTITEM* FindPublic(OEMCUIPPARAM* param, BYTE id) {
    auto* end = param->pDrvOptItems + param->cDrvOptItems;
    auto* found =
        std::find_if(param->pDrvOptItems, end, [&](const OPTITEM& item) { return item.DMPubID == id; });
    return found == end ? nullptr : found;
}

std::uint16_t Selected(std::vector<std::byte>& devmode, std::size_t feature) {
    std::uint16_t option = 0;
    std::memcpy(&option, devmode.data() + kPublicSize + sizeof(DriverArea) + 2 * feature, sizeof option);
    return option;
}

// Of small.ppd, in file order.
constexpr std::size_t kStapleMode = 5;
constexpr std::size_t kMirroredImage = 7;

TEST_F(DocumentSheetTest, BringsAChangedItemIntoTheDevMode) {
    auto out = Default();
    EXPECT_EQ(Selected(out, kStapleMode), 0);
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI* helper) {
        OPTITEM* item = FindItem(param, "StapleMode");
        item->Sel = 2;
        EXPECT_EQ(helper->DrvUpdateUISetting(param->poemuiobj, item, 0, OEMCUIP_DOCPROP), S_OK);
        EXPECT_TRUE(item->Flags & OPTIF_CHANGED);
    };
    EXPECT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    EXPECT_EQ(Selected(out, kStapleMode), 2);
    EXPECT_EQ(Selected(out, kMirroredImage), 1);
}

TEST_F(DocumentSheetTest, BringsPublicItemsIntoThePublicFields) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        FindPublic(param, DMPUB_ORIENTATION)->Sel = 1;
        FindPublic(param, DMPUB_SCALE)->Sel = 70;
        FindPublic(param, DMPUB_COPIES_COLLATE)->Sel = 12;
        FindPublic(param, DMPUB_COPIES_COLLATE)->Flags &= ~OPTIF_ECB_CHECKED;
        FindPublic(param, DMPUB_DEFSOURCE)->Sel = 2;
        FindPublic(param, DMPUB_PRINTQUALITY)->Sel = 1;
        FindPublic(param, DMPUB_FORMNAME)->Sel = 2;
        FindPublic(param, DMPUB_MEDIATYPE)->Sel = 1;
        FindPublic(param, DMPUB_NUP)->Sel = 3;
    };
    ASSERT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    const DEVMODEW& dm = Public(out);
    EXPECT_EQ(dm.dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(dm.dmScale, 70);
    EXPECT_EQ(dm.dmCopies, 12);
    EXPECT_EQ(dm.dmCollate, DMCOLLATE_FALSE);
    EXPECT_EQ(dm.dmDefaultSource, DMBIN_USER + 2);
    EXPECT_EQ(dm.dmPrintQuality, 1200);
    EXPECT_EQ(dm.dmYResolution, 1200);
    EXPECT_EQ(dm.dmPaperSize, DMPAPER_LETTER);
    EXPECT_EQ(std::wstring(dm.dmFormName), L"8.5x11\"(レター)");
    EXPECT_EQ(dm.dmMediaType, static_cast<DWORD>(DMMEDIA_USER + 1));
    EXPECT_EQ(dm.dmNup, static_cast<DWORD>(DMNUP_SYSTEM));
    EXPECT_EQ(Area(out).nup, 3);
}

TEST_F(DocumentSheetTest, OpensAgainWithWhatWasStored) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        FindItem(param, "StapleMode")->Sel = 1;
        FindPublic(param, DMPUB_ORIENTATION)->Sel = 2;
        static_cast<TestBlock*>(param->pOEMDM)->value = 99;
    };
    ASSERT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    m_hooks->onApply = nullptr;
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        EXPECT_EQ(FindItem(param, "StapleMode")->Sel, 1);
        EXPECT_EQ(FindPublic(param, DMPUB_ORIENTATION)->Sel, 2);
        EXPECT_EQ(static_cast<TestBlock*>(param->pOEMDM)->value, 99u);
    };
    auto again = Default();
    ASSERT_EQ(OpenSheet(&out, again), static_cast<DWORD>(CPSUI_OK));
    EXPECT_EQ(Selected(again, kStapleMode), 1);
    EXPECT_EQ(Block(again).value, 99u);
}

TEST_F(DocumentSheetTest, GivesPortraitAsTheFirstRowOfTheOrientationItem) {
    auto out = Default();
    ASSERT_EQ(Public(out).dmOrientation, DMORIENT_PORTRAIT);
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        const OPTITEM* item = FindPublic(param, DMPUB_ORIENTATION);
        EXPECT_EQ(item->Sel, 0);
        std::vector<std::wstring> rows;
        for (WORD i = 0; i < item->pOptType->Count; ++i)
            rows.push_back(reinterpret_cast<wchar_t*>(item->pOptType->pOptParam[i].pData));
        EXPECT_EQ(rows, (std::vector<std::wstring>{L"たて原稿", L"よこ原稿", L"横置きに回転"}));
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("Items1b"), std::string::npos);
}

TEST_F(DocumentSheetTest, ListsFeaturesWithoutAPublicFieldAsTheLastItemsAtLevelTwo) {
    auto out = Default();
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        std::vector<std::string> tail;
        for (const OPTITEM* item = param->pDrvOptItems + param->cDrvOptItems; (--item)->Level == 2;) {
            auto* data = reinterpret_cast<USERDATA*>(item->UserData);
            EXPECT_EQ(data->dwSize, sizeof(USERDATA));
            tail.insert(tail.begin(), data->pKeyWordName);
        }
        EXPECT_EQ(tail, (std::vector<std::string>{"StapleMode", "Fold", "MirroredImage", "SecPrint"}));
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("Items1b"), std::string::npos);
}

TEST_F(DocumentSheetTest, TellsEachFeaturesOptionCountAndDefault) {
    auto out = Default();
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        const OPTITEM* item = FindItem(param, "MirroredImage");
        EXPECT_EQ(item->cbSize, 88);
        EXPECT_EQ(item->pOptType->Count, 2);
        EXPECT_EQ(item->Sel, 1);
        const auto* words =
            reinterpret_cast<const DWORD*>(reinterpret_cast<USERDATA*>(item->UserData)->dwItemID);
        EXPECT_EQ(words[3], 1u);
        EXPECT_EQ(FindItem(param, "StapleMode")->pOptType->Count, 3);
        EXPECT_EQ(std::wstring(reinterpret_cast<wchar_t*>(FindItem(param, "StapleMode")->pName)),
                  L"ホチキス");
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("Items1b"), std::string::npos);
}

TEST_F(DocumentSheetTest, MarksTheHeaderOfTheFeaturesByItsNumber) {
    auto out = Default();
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        const OPTITEM& header = param->pDrvOptItems[param->cDrvOptItems - 5];
        EXPECT_EQ(static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(header.pName)), 418u);
        EXPECT_EQ(header.Level, 1);
        EXPECT_EQ((&header)[1].Level, 2);
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("Items1b"), std::string::npos);
}

TEST_F(DocumentSheetTest, OffersTheCustomPageAsTheLastForm) {
    auto out = Default();
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        const OPTITEM* form = FindPublic(param, DMPUB_FORMNAME);
        ASSERT_EQ(form->pOptType->Count, 5);
        EXPECT_EQ(std::wstring(reinterpret_cast<wchar_t*>(form->pOptType->pOptParam[4].pData)),
                  L"PostScript カスタム ページ サイズ");
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("Items1b"), std::string::npos);
}

TEST_F(DocumentSheetTest, TakesTheCustomPageFromTheDriversAreaWithinItsLimits) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        auto* extra = reinterpret_cast<BYTE*>(param->pPublicDM) + 220;
        *reinterpret_cast<DWORD*>(extra + 152) = 123456;
        *reinterpret_cast<DWORD*>(extra + 156) = 99999999;
        *reinterpret_cast<WORD*>(extra + 168) = 1;
        FindPublic(param, DMPUB_FORMNAME)->Sel = 4;
    };
    ASSERT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    EXPECT_EQ(Area(out).customWidth, 123456);
    EXPECT_EQ(Area(out).customHeight, 1200000);
    EXPECT_EQ(Area(out).customDirection, 1);
    EXPECT_EQ(Public(out).dmPaperSize, 0x7FFF);
    EXPECT_EQ(Public(out).dmPaperWidth, 1235);
}

TEST_F(DocumentSheetTest, RefusesToUpdateAForeignItemOrASelectionOutOfRange) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI* helper) {
        OPTITEM foreign{};
        EXPECT_EQ(helper->DrvUpdateUISetting(param->poemuiobj, &foreign, 0, OEMCUIP_DOCPROP), E_INVALIDARG);
        OPTITEM* item = FindItem(param, "StapleMode");
        item->Sel = 3;
        EXPECT_EQ(helper->DrvUpdateUISetting(param->poemuiobj, item, 1, OEMCUIP_DOCPROP), E_INVALIDARG);
        EXPECT_EQ(item->Sel, 1);
    };
    EXPECT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    EXPECT_NE(Calls().find("apply"), std::string::npos);
}

TEST_F(DocumentSheetTest, TellsAPluginWhichOptionAFeatureStandsAt) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI* helper) {
        char option[8] = {};
        DWORD needed = 0;
        DWORD count = 0;
        EXPECT_EQ(helper->DrvGetDriverSetting(param->poemuiobj, "MirroredImage", option, sizeof option,
                                              &needed, &count),
                  S_OK);
        EXPECT_STREQ(option, "True");
        EXPECT_EQ(needed, 5u);
        EXPECT_EQ(count, 1u);
        EXPECT_EQ(helper->DrvGetDriverSetting(param->poemuiobj, "MirroredImage", option, 4, &needed, &count),
                  HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER));
        EXPECT_EQ(helper->DrvGetDriverSetting(param->poemuiobj, "Nothing", option, 8, &needed, &count),
                  E_NOTIMPL);
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("apply"), std::string::npos);
}

TEST_F(DocumentSheetTest, TellsThePluginThatItsOwnItemsAreApplied) {
    auto out = Default();
    m_hooks->oemItems = 2;
    EXPECT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    EXPECT_NE(Calls().find("Applied6"), std::string::npos);
}

} // namespace
