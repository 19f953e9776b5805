#include "settings/preset_settings.h"

#include "settings/SettingManager.h"
#include "settings/print_option_access.h"

using ddb::FieldAt;
using ddb::FieldId;

namespace {

constexpr FieldId kCredentials[] = {FieldId::AuthJobUserId, FieldId::AuthJobPassword,
                                    FieldId::AuthJobAccount};

constexpr std::int32_t kUnturned[] = {1, 3};
constexpr std::int32_t kTurnedTo = 1;

// Where no standard settings could be read the record's scale is 0, to which nothing can be printed.
void MakeScaleUsable(ddb::CPrintOptionEx& option) {
    const ddb::FieldDescriptor& scale = FieldAt(FieldId::Scale);
    if (ddb::GetU32(option, scale) == 0)
        ddb::SetU32(option, scale, kUnscaled);
}

} // namespace

void PutCredentials(const ddb::CPrintOptionEx& from, ddb::CPrintOptionEx& to) {
    for (const FieldId credential : kCredentials)
        ddb::SetText(to, FieldAt(credential), ddb::GetText(from, FieldAt(credential)));
}

void TakePreset(CSettingManager& manager, const ddb::CPrintOptionEx& preset) {
    // What the record holds may be older than the store.
    manager.LoadCurrentSettingInfo();
    ddb::CPrintOptionEx& present = manager.Current().PrintOption();
    const ddb::CPrintOptionEx before = present;
    present.CopyFrom(preset);
    PutCredentials(before, present);
    MakeScaleUsable(present);
    manager.SaveCurrentToSession();
}

void PutPresentSettings(CSettingManager& manager, CFavoriteSetting& favorite) {
    favorite.PrintOption().CopyFrom(manager.Current().PrintOption());
    PutCredentials(manager.Default().PrintOption(), favorite.PrintOption());
}

void TurnCustomPage(ddb::CPrintOptionEx& option) {
    const ddb::FieldDescriptor& direction = FieldAt(FieldId::CustomPaperDirection);
    for (const std::int32_t unturned : kUnturned) {
        if (ddb::GetI32(option, direction) == unturned)
            return;
    }
    const ddb::FieldDescriptor& width = FieldAt(FieldId::CustomPaperWidth);
    const ddb::FieldDescriptor& height = FieldAt(FieldId::CustomPaperHeight);
    const std::int32_t priorWidth = ddb::GetI32(option, width);
    ddb::SetI32(option, width, ddb::GetI32(option, height));
    ddb::SetI32(option, height, priorWidth);
    ddb::SetI32(option, direction, kTurnedTo);
}
