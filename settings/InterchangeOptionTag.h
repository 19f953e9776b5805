// The numbers and short names that the print server and favourite files know settings and options by.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The tag numbers of a setting's options in option index order. `keyword` is a KeywordId or a value number;
// any other number has the tags 0 and 1. Returns 1.
int GetTagIndexArrayFromKeyword(int keyword, const std::int32_t** array, int* count);

// The tag number of an option: 1, or 0 with *tagNumber left alone if the setting has no such option.
int GetTagNumberFromPreset(int keyword, int optionIndex, std::int32_t* tagNumber);

// The first option that has this tag number: 1, or 0 with *optionIndex left alone if none has.
int GetOptionIndexFromTagNumber(int keyword, std::int32_t tagNumber, int* optionIndex);

inline constexpr int kTagCount = 864;

// The short tags of settings, each with the long name that is its element's name in a favourite file and the
// Japanese description that stands there as a comment above it, in code page 932. A search that finds
// nothing leaves its outputs alone.
class CTagTable {
  public:
    void GetTagInfo(std::string_view tag, std::string* longName, std::string* description) const;
    void GetTagFromLongName(std::string_view longName, std::string* tag) const;

    // Both append kTagCount texts, in the order of a favourite file's elements. The texts are the table's
    // own.
    void GetLongNameList(std::vector<std::string_view>* list) const;
    void GetTagList(std::vector<std::string_view>* list) const;
};
