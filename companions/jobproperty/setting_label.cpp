#include "companions/jobproperty/setting_label.h"

#include "Common/strings.h"
#include "companions/jobproperty/device_options.h"
#include "options/PrintOptionSetting.h"
#include "settings/InterchangeOptionTag.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace jobproperty {
namespace {

constexpr std::string_view kOfTag[]{
#define ZR_LABEL_OF_TAG(name) #name,
#include "companions/jobproperty/settings.def"
};

struct LabelOfItem {
    std::string_view name;
    int item;
};
constexpr LabelOfItem kOfItems[]{
#define ZR_LABEL_OF_ITEM(name, item) {#name, option_item::item},
#include "companions/jobproperty/settings.def"
};

struct LabelText {
    std::string_view name;
    unsigned text;
};
constexpr LabelText kTexts[]{
#define ZR_LABEL_TEXT(name, text) {#name, text},
#include "companions/jobproperty/settings.def"
};

struct LabelBeside {
    std::string_view name;
    std::string_view other;
    unsigned text;
};
constexpr LabelBeside kBeside[]{
#define ZR_LABEL_BESIDE(name, other, text) {#name, #other, text},
#include "companions/jobproperty/settings.def"
};

std::string PlugInLabel(int item) {
    std::array<char, 260> text{};
    UICommon::GetKeywordTranslation(item, text.data(), text.size());
    return text.data();
}

// Some settings have a tag that no field bears, by their name alone.
std::string TagLabel(std::string_view name, const ddb::FieldDescriptor* field) {
    const CTagTable tags;
    std::string tag(field ? field->tag : std::string_view());
    if (tag.empty())
        tags.GetTagFromLongName(name, &tag);
    std::string longName;
    std::string description;
    tags.GetTagInfo(tag, &longName, &description);
    return description;
}

std::string OwnLabel(std::string_view name, const ppd::PpdFile& device) {
    const KeyValue value = DescribeKeyValue(name);
    if (value.isKeyword && std::ranges::find(kOfTag, name) == std::end(kOfTag))
        if (std::string label = PlugInLabel(value.number); !label.empty())
            return label;
    if (std::string label = TagLabel(name, value.field); !label.empty())
        return label;
    return value.isKeyword ? DeviceLabel(device, value.number) : std::string();
}

} // namespace

std::string LabelOf(std::string_view name, const ppd::PpdFile& device) {
    if (const auto* row = std::ranges::find(kOfItems, name, &LabelOfItem::name); row != std::end(kOfItems))
        return PlugInLabel(row->item);
    if (const auto* row = std::ranges::find(kTexts, name, &LabelText::name); row != std::end(kTexts))
        return LoadText(row->text);
    if (const auto* row = std::ranges::find(kBeside, name, &LabelBeside::name); row != std::end(kBeside))
        return OwnLabel(row->other, device).append("(").append(LoadText(row->text)).append(")");
    return OwnLabel(name, device);
}

} // namespace jobproperty
