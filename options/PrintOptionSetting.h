// What users read of the settings: the label of each and the texts of its options. All of it comes from the
// string table; the tables here hold numbers.
#pragma once

#include "session/keyword.h"

#include <cstddef>
#include <string>
#include <string_view>

// The items beyond the keyword table that have a label or a list. KeywordIds and these numbers form one
// range.
namespace option_item {
enum OptionItem : int {
    KW_MEDIATYPEWEIGHT2 = 336,
    SamplePrint = 554,
    BasicGroup = 564,
    TrayAndOutputGroup = 565,
    BypassGroup = 566,
    AutoTrayPaperGroup = 567,
    JobName = 579,
    JobNameChoice = 580,
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
// zero-filled buffer for an item that has none.
int GetPrintOptionString(const int* key, char* buffer, std::size_t bufferSize);

// Fills `result` with the text of a short tag and returns it; an unknown tag leaves it empty.
std::string& LookupOptionTag(std::string& result, std::string_view tag);

// Asks about the options of an item; an item without a list gives 0.
//   buffer null: *index receives the number of options, the result is 1.
//   else:        buffer receives the text of option *index, cut to `bufferSize` bytes, and the result is 1;
//   it is 0, and
//                the buffer is left alone, if the list ends before that option.
// A list ends at its text "(サイズ混在)" as seen from any higher index: such an index gets that text. Copies
// and Scale have no list but any number for an option, and answer 0 to a null buffer.
int GetPrintOptionStringList(const int* key, char* buffer, std::size_t bufferSize, int* index);
