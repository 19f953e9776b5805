// What the authentication fields of a record should hold, written byte by byte at their offsets.
#pragma once

#include "oemps/devmode.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

struct OwnerFields {
    unsigned manageMethod = 0;
    unsigned specifyJobOwnerName = 0;
    std::string userId = {};
    std::string password = {};
    std::string account = {};
};

// As strcpy does it, but for the end of the text's 256 bytes.
inline void PutText(std::string& record, std::size_t offset, const std::string& text) {
    for (std::size_t i = 0; i < 256; ++i) {
        const char letter = i < text.size() ? text[i] : '\0';
        record.at(offset + i) = letter;
        if (letter == '\0')
            return;
    }
}

inline void PutNumber(std::string& record, std::size_t offset, unsigned number) {
    for (std::size_t i = 0; i < 4; ++i)
        record.at(offset + i) = static_cast<char>(number >> (8 * i) & 0xFF);
}

// `record` with nothing changed but these fields.
inline std::string With(std::string record, const OwnerFields& fields) {
    PutNumber(record, 4704, fields.manageMethod);
    PutNumber(record, 23772, fields.specifyJobOwnerName);
    PutText(record, 3830, fields.userId);
    PutText(record, 3896, fields.password);
    PutText(record, 4025, fields.account);
    return record;
}

inline std::string BytesOf(const PrivateDevMode& record) {
    return std::string(reinterpret_cast<const char*>(&record), sizeof record);
}

// Empty if the two are equal, else the place of the first byte in which they differ.
inline std::string Difference(std::string_view record, std::string_view expected) {
    if (record.size() != expected.size())
        return "another size";
    for (std::size_t i = 0; i < record.size(); ++i)
        if (record[i] != expected[i])
            return "byte " + std::to_string(i) + " is " +
                   std::to_string(static_cast<unsigned char>(record[i])) + " for " +
                   std::to_string(static_cast<unsigned char>(expected[i]));
    return {};
}

// A record of bytes that no operation writes.
inline PrivateDevMode StrangeRecord() {
    PrivateDevMode record;
    std::memset(static_cast<void*>(&record), 0xCD, sizeof record);
    return record;
}
