#include "host/option_items.h"

#include "host/wide.h"

#include <algorithm>

namespace {

constexpr BYTE kPublicLevel = 1;
constexpr BYTE kFeatureLevel = 2;
constexpr std::size_t kPublicItems = 9;

} // namespace

OptionItems::OptionItems(const PrinterModel& model, const Settings& settings)
    : m_model(model), m_before(settings) {
    m_items.reserve(kPublicItems + model.TailFeatures().size());
    AddPublicItems(settings);
    AddHeader();
    AddTail(settings);
}

LPTSTR OptionItems::Keep(std::u16string text) {
    m_texts.push_back(Wide(text));
    // All texts are wide, whatever the structures are declared with.
    return reinterpret_cast<LPTSTR>(m_texts.back().data());
}

std::u16string OptionItems::Word(std::u16string_view english, std::u16string_view japanese) const {
    return std::u16string(m_model.TextLanguage() == Language::Japanese ? japanese : english);
}

std::vector<std::u16string> OptionItems::OptionTexts(std::size_t feature) const {
    std::vector<std::u16string> texts;
    for (std::size_t i = 0; i < m_model.Features()[feature].options.size(); ++i)
        texts.push_back(m_model.OptionText(feature, i));
    return texts;
}

OptionItems::Backing& OptionItems::Add(Role role, BYTE level, BYTE publicId, std::u16string name,
                                       LONG selection) {
    auto backing = std::make_unique<Backing>();
    backing->role = role;
    backing->type.cbSize = sizeof(OPTTYPE);
    OPTITEM item{};
    item.cbSize = sizeof(OPTITEM);
    item.Level = level;
    item.DMPubID = publicId;
    item.pName = Keep(std::move(name));
    item.Sel = selection;
    item.pOptType = &backing->type;
    m_items.push_back(item);
    m_backing.push_back(std::move(backing));
    return *m_backing.back();
}

void OptionItems::SetOptions(Backing& backing, BYTE type, const std::vector<std::u16string>& options) {
    for (const std::u16string& option : options) {
        OPTPARAM param{};
        param.cbSize = sizeof(OPTPARAM);
        param.pData = Keep(option);
        backing.params.push_back(param);
    }
    backing.maximum = static_cast<LONG>(options.size()) - 1;
    backing.type.Type = type;
    backing.type.Count = static_cast<WORD>(options.size());
    backing.type.pOptParam = backing.params.data();
}

void OptionItems::AddList(Role role, BYTE publicId, std::u16string name,
                          const std::vector<std::u16string>& options, LONG selection) {
    Backing& backing = Add(role, kPublicLevel, publicId, std::move(name), selection);
    SetOptions(backing, TVOT_LISTBOX, options);
}

// An up-down arrow has two parameters: the unit, and the limits.
void OptionItems::AddRange(Role role, BYTE publicId, std::u16string name, std::u16string unit, LONG minimum,
                           LONG maximum, LONG selection) {
    Backing& backing = Add(role, kPublicLevel, publicId, std::move(name), selection);
    SetOptions(backing, TVOT_UDARROW, {std::move(unit), u""});
    backing.params[1].pData = nullptr;
    backing.params[1].IconID = static_cast<ULONG_PTR>(minimum);
    backing.params[1].lParam = maximum;
    backing.minimum = minimum;
    backing.maximum = maximum;
}

void OptionItems::AddPublicFeature(Role role, BYTE publicId, PublicFeature feature,
                                   const Settings& settings) {
    auto index = m_model.Find(feature);
    if (!index)
        return;
    AddList(role, publicId, m_model.FeatureText(*index), OptionTexts(*index), settings.selection[*index]);
    m_backing.back()->feature = *index;
}

void OptionItems::AddCollate(OPTITEM& item, Backing& backing, bool checked) {
    backing.checkBox.cbSize = sizeof(EXTCHKBOX);
    backing.checkBox.Flags = ECBF_CHECKNAME_ONLY_ENABLED;
    backing.checkBox.pTitle = Keep(Word(u"Collate", u"部単位で印刷"));
    backing.checkBox.pCheckedName = Keep(Word(u"Collated", u"部単位"));
    backing.checkBox.IconID = IDI_CPSUI_COLLATE;
    item.pExtChkBox = &backing.checkBox;
    if (checked)
        item.Flags |= OPTIF_ECB_CHECKED;
}

void OptionItems::AddPublicItems(const Settings& settings) {
    AddPublicFeature(Role::Source, DMPUB_DEFSOURCE, PublicFeature::InputSlot, settings);
    std::vector<std::u16string> forms;
    for (const Form& form : m_model.Forms())
        forms.push_back(form.name);
    AddList(Role::Form, DMPUB_FORMNAME, m_model.FeatureText(m_model.Find(PublicFeature::PageSize).value()),
            forms, static_cast<LONG>(settings.form));
    AddList(Role::Orientation, DMPUB_ORIENTATION, Word(u"Orientation", u"原稿の向き"),
            {Word(u"Portrait", u"たて原稿"), Word(u"Landscape", u"よこ原稿"),
             Word(u"Rotated Landscape", u"横置きに回転")},
            settings.orientation);
    m_backing.back()->type.Type = TVOT_3STATES;
    AddRange(Role::Copies, DMPUB_COPIES_COLLATE, Word(u"Copies", u"部数"), Word(u"copies", u"部"), kMinCopies,
             kMaxCopies, settings.copies);
    AddCollate(m_items.back(), *m_backing.back(), settings.collate);
    AddRange(Role::Scale, DMPUB_SCALE, Word(u"Scale", u"倍率"), u"%", kMinScale, kMaxScale, settings.scale);
    AddPublicFeature(Role::Quality, DMPUB_PRINTQUALITY, PublicFeature::Resolution, settings);
    AddPublicFeature(Role::Media, DMPUB_MEDIATYPE, PublicFeature::MediaType, settings);
    AddList(Role::Nup, DMPUB_NUP, Word(u"Pages per Sheet", u"まとめて一枚"),
            {u"1", u"2", u"4", u"6", u"9", u"16"}, settings.nup);
    static_assert(kPagesPerSheet == std::array{1, 2, 4, 6, 9, 16});
}

void OptionItems::AddHeader() {
    Backing& backing = Add(Role::Header, kPublicLevel, DMPUB_NONE, {}, 0);
    backing.type.Type = TVOT_NONE;
    m_items.back().pOptType = nullptr;
    m_items.back().pName = reinterpret_cast<LPTSTR>(MAKEINTRESOURCEW(kFeaturesHeaderName));
}

void OptionItems::AddTail(const Settings& settings) {
    for (std::size_t feature : m_model.TailFeatures()) {
        const ppd::Feature& entry = m_model.Features()[feature];
        Backing& backing = Add(Role::Feature, kFeatureLevel, DMPUB_NONE, m_model.FeatureText(feature),
                               settings.selection[feature]);
        SetOptions(backing, TVOT_LISTBOX, OptionTexts(feature));
        backing.feature = feature;
        backing.keyword = entry.keyword;
        backing.record = {static_cast<DWORD>(feature), static_cast<DWORD>(entry.options.size()), 0,
                          static_cast<DWORD>(entry.defaultOption)};
        backing.userData.dwSize = sizeof(USERDATA);
        backing.userData.dwItemID = reinterpret_cast<ULONG_PTR>(&backing.record);
        backing.userData.pKeyWordName = backing.keyword.data();
        m_items.back().UserData = reinterpret_cast<ULONG_PTR>(&backing.userData);
    }
}

bool OptionItems::Contains(const OPTITEM* item) const {
    // Not a plain comparison, which says nothing about pointers into other objects.
    return std::ranges::any_of(m_items, [&](const OPTITEM& own) { return &own == item; });
}

bool OptionItems::InRange(const OPTITEM& item) const {
    const Backing& backing = *m_backing[static_cast<std::size_t>(&item - m_items.data())];
    return item.Sel >= backing.minimum && item.Sel <= backing.maximum;
}

const OPTITEM* OptionItems::Find(std::string_view keyword) const {
    for (std::size_t i = 0; i < m_items.size(); ++i)
        if (m_backing[i]->role == Role::Feature && m_backing[i]->keyword == keyword)
            return &m_items[i];
    return nullptr;
}

Settings OptionItems::Read() const {
    Settings settings = m_before;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const OPTITEM& item = m_items[i];
        const Backing& backing = *m_backing[i];
        if (backing.role == Role::Copies)
            settings.collate = (item.Flags & OPTIF_ECB_CHECKED) != 0;
        if (!InRange(item))
            continue;
        switch (backing.role) {
        case Role::Orientation: settings.orientation = item.Sel; break;
        case Role::Scale: settings.scale = item.Sel; break;
        case Role::Copies: settings.copies = item.Sel; break;
        case Role::Form: ChooseForm(settings, m_model, static_cast<std::size_t>(item.Sel)); break;
        case Role::Nup: settings.nup = item.Sel; break;
        case Role::Source:
        case Role::Quality:
        case Role::Media:
        case Role::Feature: settings.selection[backing.feature] = static_cast<std::uint16_t>(item.Sel); break;
        case Role::Header: break;
        }
    }
    return settings;
}
