// The fields that travel through a favourite file, from the listings of the record and of the tags.
#pragma once

#include "settings/Ddb_PrintOption.h"
#include "tests/settings/print_option_listing.h"

#include <span>
#include <string>
#include <vector>

struct TravellingField {
    std::string tag;
    std::string longName;
    ListedOptionField field;

    bool IsText() const { return field.type == "text"; }
    // The field's own bytes, and those of its flag where it has one.
    std::vector<std::uint8_t> BytesIn(const ddb::CPrintOptionEx& option) const;
    std::int64_t NumberIn(const ddb::CPrintOptionEx& option) const;
    std::string TextIn(const ddb::CPrintOptionEx& option) const;
    void PutNumber(ddb::CPrintOptionEx& option, std::int64_t number) const;
    void PutText(ddb::CPrintOptionEx& option, const std::string& text) const;

  private:
    std::span<const std::uint8_t> FieldIn(const ddb::CPrintOptionEx& option) const;
    std::span<std::uint8_t> FieldIn(ddb::CPrintOptionEx& option) const;
};

// In the order of a file's elements: 469, the four of authentication left out.
std::vector<TravellingField> TravellingFields();
// The tags of authentication.
bool IsAuthentication(const std::string& tag);
