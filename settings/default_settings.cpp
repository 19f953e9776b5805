#include "settings/default_settings.h"

#include "host/driver_devmode.h"
#include "host/printer_model.h"
#include "oemps/devmode.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "session/record_transfer.h"
#include "session/units.h"
#include "settings/favorite_version.h"

#include <memory>

namespace {

void SetCurrent(int keyword, int value) {
    ExportedFunc_SetCurrent(keyword, static_cast<std::uint32_t>(value));
}

// The features behind the driver's items, by their keywords; those that the keyword table lacks stay unbound.
void LoadFeatures(const PrinterModel& model, const Settings& settings) {
    for (const std::size_t feature : model.TailFeatures())
        if (const int keyword = FindKeyword(model.Features()[feature].keyword); keyword >= 0)
            SetCurrent(keyword, settings.selection[feature]);
}

struct PublicKeyword {
    PublicFeature feature;
    int keyword;
};
constexpr PublicKeyword kPublicKeywords[] = {
    {PublicFeature::InputSlot, keyword::Tray},
    {PublicFeature::Resolution, keyword::Resolution},
    {PublicFeature::MediaType, keyword::PaperTypeD},
};

// The driver's public settings.
void LoadPublicSettings(const PrinterModel& model, const Settings& settings) {
    SetCurrent(keyword::PageOrientation, settings.orientation);
    SetCurrent(keyword::Scale, settings.scale);
    SetCurrent(keyword::Copies, settings.copies);
    SetCurrent(keyword::Collate, settings.collate ? 1 : 0);
    SetCurrent(keyword::PageSize, static_cast<int>(settings.form));
    SetCurrent(keyword::NUP, settings.nup);
    for (const PublicKeyword& row : kPublicKeywords)
        if (const auto feature = model.Find(row.feature))
            SetCurrent(row.keyword, settings.selection[*feature]);
}

// The custom page of the driver's own area. The sheet's start sends the paper fields of the record, whose
// unit changes on the way, along with it.
void LoadCustomPage(const PrivateDevMode& record, const Settings& settings) {
    SetCurrent(keyword::CustomPaperWidth, settings.customWidth);
    SetCurrent(keyword::CustomPaperHeight, settings.customHeight);
    SetCurrent(keyword::CustomPaperDirection, settings.customDirection);
    ExportedFunc_SetChgPrintPaperSizeWidth(Inch14400ToMicrons(record.ChgPrintPaperSizeWidth, 2));
    ExportedFunc_SetChgPrintPaperSizeLength(Inch14400ToMicrons(record.ChgPrintPaperSizeLength, 2));
    ExportedFunc_SetCurrent(keyword::CustomChgPaperDirection, record.CustomChgPaperDirection);
}

} // namespace

CFavoriteSetting StandardSettings(const PrinterModel& model) {
    ExportedFunc_InitializeDataManager();
    const Settings settings = DefaultSettings(model);
    const auto record = std::make_unique<PrivateDevMode>();
    CDevMode(*record).SetDefault(kDevModeSize);
    LoadFeatures(model, settings);
    LoadPublicSettings(model, settings);
    LoadStoreFromRecord(*record);
    LoadStoreAgain(*record);
    LoadCustomPage(*record, settings);

    CCurrentSetting current;
    current.CreateSettingInfo();
    CFavoriteSetting standard;
    standard.FileVer = kFavoriteFileVer;
    standard.IotVer = kFavoriteIotVer;
    standard.PrintOption().CopyFrom(current.PrintOption());
    return standard;
}
