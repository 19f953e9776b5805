// The option item tree of one document sheet: the driver's settings as plug-ins see and change them.
#pragma once

#include "host/driver_devmode.h"
#include "oemps/printoem.h"

#include <deque>
#include <memory>
#include <span>
#include <string>
#include <vector>

// What USERDATA::dwItemID points to. Its fourth word is the default option's index.
struct FeatureRecord {
    DWORD index; // of the feature in the description
    DWORD optionCount;
    DWORD flags; // 0
    DWORD defaultOption;
};
static_assert(offsetof(FeatureRecord, defaultOption) == kFeatureDefaultOptionWord * sizeof(DWORD));

// The name of the header item above the tail of features: a resource number, not a text.
inline constexpr WORD kFeaturesHeaderName = 418;

class OptionItems {
  public:
    // `model` must outlive the items.
    OptionItems(const PrinterModel& model, const Settings& settings);
    OptionItems(const OptionItems&) = delete;
    OptionItems& operator=(const OptionItems&) = delete;

    std::span<OPTITEM> Items() { return m_items; }

    // The settings that the items stand at. A selection outside its item's range leaves that setting as it
    // was given to the constructor.
    Settings Read() const;

    // Whether `item` is one of these and stands within its range.
    bool Contains(const OPTITEM* item) const;
    bool InRange(const OPTITEM& item) const;

    // The item of a feature of the tail; null if there is none.
    const OPTITEM* Find(std::string_view keyword) const;

  private:
    enum class Role { Orientation, Scale, Copies, Source, Quality, Form, Media, Nup, Header, Feature };

    // What stands behind the item at the same index.
    struct Backing {
        Role role;
        std::size_t feature = 0; // of Role::Feature, Source, Quality and Media
        LONG minimum = 0;
        LONG maximum = 0;
        OPTTYPE type{};
        std::vector<OPTPARAM> params;
        EXTCHKBOX checkBox{};
        USERDATA userData{};
        FeatureRecord record{};
        std::string keyword;
    };

    void AddPublicItems(const Settings& settings);
    void AddHeader();
    void AddTail(const Settings& settings);
    Backing& Add(Role role, BYTE level, BYTE publicId, std::u16string name, LONG selection);
    void AddList(Role role, BYTE publicId, std::u16string name, const std::vector<std::u16string>& options,
                 LONG selection);
    void AddRange(Role role, BYTE publicId, std::u16string name, std::u16string unit, LONG minimum,
                  LONG maximum, LONG selection);
    void AddPublicFeature(Role role, BYTE publicId, PublicFeature feature, const Settings& settings);
    void SetOptions(Backing& backing, BYTE type, const std::vector<std::u16string>& options);
    void AddCollate(OPTITEM& item, Backing& backing, bool checked);
    LPTSTR Keep(std::u16string text);
    std::u16string Word(std::u16string_view english, std::u16string_view japanese) const;
    std::vector<std::u16string> OptionTexts(std::size_t feature) const;

    const PrinterModel& m_model;
    Settings m_before;
    std::deque<std::wstring> m_texts;
    std::vector<OPTITEM> m_items;
    std::vector<std::unique_ptr<Backing>> m_backing;
};
