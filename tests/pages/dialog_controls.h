// The controls of each dialog template. 1300 to 1398 and so on are the ids of resources/resource.h.
#pragma once

#include <array>
#include <map>
#include <vector>

inline constexpr int kStandardPage = 1066;
inline constexpr int kAdvancedPage = 4007;
inline constexpr int kCustomPage = 102;
inline constexpr int kMediaType = 4003;
inline constexpr int kMediaTypeBypass = 4005;
inline constexpr int kMediaTypeAutoTray = 4006;
inline constexpr int kJobName = 1027;
inline constexpr int kSavePreset = 1028;
inline constexpr int kFavorites = 1126;
inline constexpr int kDevicePage = 1121;
inline constexpr std::array kTemplates{kStandardPage,    kAdvancedPage,      kCustomPage, kMediaType,
                                       kMediaTypeBypass, kMediaTypeAutoTray, kJobName,    kSavePreset,
                                       kFavorites,       kDevicePage};

enum class Kind {
    Text,
    Sorted,
    Plain,
    Extended,
    Check,
    Radio,
    Group,
    Button,
    Number,
    Edit,
    Lines,
    List,
    Spin,
    Drawn
};

struct ExpectedControl {
    int id;
    Kind kind;
    int label = 0; // of the control that stands directly before this one
};

using Controls = std::vector<ExpectedControl>;

// By template.
extern const std::map<int, Controls> kControls;
