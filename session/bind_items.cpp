#include "session/bind_items.h"

#include "Common/log.h"
#include "session/datamanager.h"

#include <array>
#include <cstring>
#include <ranges>
#include <string_view>

namespace {

constexpr BYTE kFeatureLevel = 2;
// What a bound item's tag is above its keyword.
constexpr int kTagBase = 100;

const USERDATA* UserDataOf(const OPTITEM& item) {
    return reinterpret_cast<const USERDATA*>(item.UserData);
}

// The keyword of the feature behind an item, -1 for an item without one.
int KeywordOf(const OPTITEM& item) {
    const USERDATA* data = UserDataOf(item);
    return data ? CSession::KeywordIdFromName(data->pKeyWordName) : -1;
}

// The default option of the feature's record, 0 without a record.
std::uint32_t DefaultOptionOf(const OPTITEM& item) {
    const auto* record = reinterpret_cast<const std::uint32_t*>(UserDataOf(item)->dwItemID);
    return record ? record[kFeatureDefaultOptionWord] : 0;
}

void Bind(OPTITEM& item, int id, SessionBlock& block) {
    block.item[static_cast<std::size_t>(id)] = &item;
    ExportedFunc_SetDefault(id, DefaultOptionOf(item));
    ExportedFunc_SetCurrent(id, static_cast<std::uint32_t>(item.Sel));
    // The tag has one byte: keyword 156 wraps to 0, and 157 to 172 get the tags of public settings.
    item.DMPubID = static_cast<BYTE>(id + kTagBase);
    ZR_LOG("%s(%d) Sel=%ld\n", kKeywordNames[static_cast<std::size_t>(id)], id, item.Sel);
}

// The keyword of a public setting, -1 where none is bound. The copies item is bound to Collate as well.
int PublicKeyword(BYTE tag) {
    switch (tag) {
    case DMPUB_ORIENTATION: return keyword::PageOrientation;
    case DMPUB_SCALE: return keyword::Scale;
    case DMPUB_COPIES_COLLATE: return keyword::Copies;
    case DMPUB_DEFSOURCE: return keyword::Tray;
    case DMPUB_PRINTQUALITY: return keyword::Resolution;
    case DMPUB_FORMNAME: return keyword::PageSize;
    case DMPUB_MEDIATYPE: return keyword::PaperTypeD;
    case DMPUB_NUP: return keyword::NUP;
    default: return -1;
    }
}

void BindPublicItem(OPTITEM& item, SessionBlock& block) {
    const int id = PublicKeyword(item.DMPubID);
    if (id < 0)
        return;
    if (item.DMPubID == DMPUB_COPIES_COLLATE) {
        block.item[keyword::Collate] = &item;
        ExportedFunc_SetCurrent(keyword::Collate, (item.Flags & OPTIF_ECB_CHECKED) != 0 ? 1 : 0);
    }
    block.item[static_cast<std::size_t>(id)] = &item;
    ExportedFunc_SetCurrent(id, static_cast<std::uint32_t>(item.Sel));
    ZR_LOG("DMPubID=%u %s(%d) Sel=%ld\n", item.DMPubID, kKeywordNames[static_cast<std::size_t>(id)], id,
           item.Sel);
}

} // namespace

void BindByName(std::span<OPTITEM> items, SessionBlock& block) {
    ZR_LOG_ENTRY();
    for (OPTITEM& item : items | std::views::reverse) {
        if (item.Level != kFeatureLevel)
            break;
        if (const int id = KeywordOf(item); id >= 0)
            Bind(item, id, block);
    }
}

// The public items stand in front of the features, so that they are met after, and win against, a feature
// whose tag has wrapped to that of a public setting.
void BindPublicItems(std::span<OPTITEM> items, SessionBlock& block) {
    ZR_LOG_ENTRY();
    for (OPTITEM& item : items | std::views::reverse)
        BindPublicItem(item, block);
}
