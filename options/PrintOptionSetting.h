// What users read of the settings: the label of each and the texts of its options. All of it comes from the
// string table; the tables here hold numbers.
#pragma once

#include "session/keyword.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The items beyond the keyword table that have a label or a list, or give way to a setting. KeywordIds and
// these numbers form one range.
namespace option_item {
enum OptionItem : int {
    KW_MEDIATYPEWEIGHT2 = 336,
    MediaTypeWeightValueBypass = 339,
    SamplePrintMode = 554,
    StapleFreeBinding = 562,
    BasicGroup = 564,
    TrayAndOutputGroup = 565,
    BypassGroup = 566,
    AutoTrayPaperGroup = 567,
    JobName = 579,
    JobNameGroup = 580,
    JobNameChoice = 581,
    Favorites = 583,
    MediaDialogPaperType = 584,
    MediaDialogWeight = 585,
    MediaDialogColor = 586,
    MediaDialogSheetsPerSet = 587,
    MediaDialogNumber = 588,
    MediaDialogCoating = 589,
    MediaDialogDrilled = 590,
    MediaDialogGloss = 591,
    MediaDialogPreprinted = 592,
    Limit
};
} // namespace option_item

// The label of an item, with its accelerator: 1 and the text, cut to `bufferSize` bytes, or 0 and a
// zero-filled buffer for an item that has none. A null buffer receives nothing.
int GetPrintOptionString(const int* key, char* buffer, std::size_t bufferSize);

// Fills `result` with the text of a short tag and returns it; an unknown tag leaves it empty.
std::string& LookupOptionTag(std::string& result, std::string_view tag);

// Asks about the options of an item; an item without a list gives 0.
//   buffer null: *index receives the number of options, the result is 1.
//   else:        buffer receives the text of option *index, cut to `bufferSize` bytes, and the result is 1.
//                If the list ends before that option, the buffer is left alone and the result is 0.
// A list ends at its text "(サイズ混在)" as seen from any higher or negative index: such an index gets that
// text. Copies and Scale have no list but any number for an option, and answer 0 to a null buffer.
int GetPrintOptionStringList(const int* key, char* buffer, std::size_t bufferSize, int* index);

namespace UICommon {

// The label of an item without its accelerator; else as GetPrintOptionString.
int GetKeywordTranslation(int keyword, char* buffer, std::size_t size);

// The text of one option; the result is that of GetPrintOptionStringList.
int GetKeywordOptionString(int keyword, char* buffer, std::size_t size, int value);

// GetStringList_<list>(texts) appends the texts of a list in index order, each whole and with its accelerator
// if it has one. There is one such function for each list of options/option_lists.def; items that share a
// list share the function.
#define ZR_TEXT_LIST(item, ...) void GetStringList_##item(std::vector<std::string>& texts);
#define ZR_VALUE_LIST(item, ...) void GetStringList_##item(std::vector<std::string>& texts);
#define ZR_EMPTY_LIST(item) void GetStringList_##item(std::vector<std::string>& texts);
#include "options/option_lists.def"

} // namespace UICommon
