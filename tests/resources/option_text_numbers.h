// The string numbers of the options' texts, by the item that has them.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

// A text of an option list, with or without a suffix.
struct TextNumber {
    TextNumber(unsigned textNumber, const char* = "") : number(textNumber) {}
    unsigned number;
};

// All texts of each item, those of values too that no list shows.
inline const std::map<std::string, std::vector<unsigned>> kOptionTexts = [] {
    std::map<std::string, std::vector<unsigned>> texts;
#define ZR_VALUE_TEXT(item, value, text) texts[#item].push_back(text);
#include "options/option_texts.def"
#define ZR_TEXT_LIST(item, ...)                                                                              \
    for (const TextNumber& option : std::vector<TextNumber>{__VA_ARGS__})                                    \
        texts[#item].push_back(option.number);
#include "options/option_lists.def"
    return texts;
}();

// Those that the list of each item shows, in its order.
inline const std::map<std::string, std::vector<unsigned>> kListedTexts = [] {
    std::map<std::pair<std::string, int>, unsigned> valueTexts;
#define ZR_VALUE_TEXT(item, value, text) valueTexts[{#item, value}] = text;
#include "options/option_texts.def"
    std::map<std::string, std::vector<unsigned>> lists;
#define ZR_TEXT_LIST(item, ...)                                                                              \
    for (const TextNumber& option : std::vector<TextNumber>{__VA_ARGS__})                                    \
        lists[#item].push_back(option.number);
#define ZR_VALUE_LIST(item, ...)                                                                             \
    for (const int value : {__VA_ARGS__})                                                                    \
        lists[#item].push_back(valueTexts.at({#item, value}));
#include "options/option_lists.def"
    return lists;
}();
