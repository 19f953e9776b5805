// A second copy of the option vocabulary, kept by hand, so that a change of the tables breaks a test on
// purpose.
#pragma once

#include <map>
#include <string>
#include <vector>

// Every text by the list that shows it and its value, those that no list offers included.
extern const std::map<std::string, std::map<int, std::string>> kTextsByValue;

// The lists of values and of plain texts, in index order.
extern const std::map<std::string, std::vector<int>> kValueLists;
extern const std::map<std::string, std::vector<std::string>> kTextLists;

// Which list each item shows.
extern const std::map<int, std::string> kListOfItem;

// The texts of either kind of list, in index order.
std::vector<std::string> TextsOfList(const std::string& list);
