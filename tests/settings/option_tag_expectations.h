// What tests expect of the access to a set's fields by tag.
#pragma once

#include "settings/setting_info.h"
#include "tests/settings/print_option_listing.h"

#include <map>
#include <string>
#include <vector>

class PlainSetting : public CSettingInfo {
  public:
    int CreateSettingInfo() override { return 1; }
};

// The three blocks by their listed names.
using OptionBlocks = std::map<std::string, std::vector<std::uint8_t>>;

OptionBlocks BlocksOf(const ddb::CPrintOptionEx& option);
void FillWith(ddb::CPrintOptionEx& option, std::uint8_t byte);

void Store(CSettingInfo& setting, const std::string& tag, std::string value);
// `untouched` if nothing was written.
std::string Fetch(CSettingInfo& setting, const std::string& tag,
                  const std::string& untouched = "(untouched)");

// The listed fields by the tag that reaches them; the names of those that do not bear it are written out.
std::map<std::string, ListedOptionField> ListedFieldsByTag();

// Stores and fetches samples of the field's type: the field's bytes, its flag and no others change.
void ExpectReaches(const std::string& tag, const ListedOptionField& field);
void ExpectReachesNothing(const std::string& tag);
