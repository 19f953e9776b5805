#include "host/dump.h"

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

namespace {

using Record = std::vector<std::byte>;

void Put16(Record& record, std::size_t offset, unsigned value) {
    record[offset] = static_cast<std::byte>(value & 0xFF);
    record[offset + 1] = static_cast<std::byte>(value >> 8);
}

// A DEVMODE of the name "X1" with `extra` zero bytes behind it.
Record MakeRecord(std::size_t extra) {
    Record record(220 + extra);
    Put16(record, 0, 'X');
    Put16(record, 2, '1');
    Put16(record, 64, 0x401);
    Put16(record, 68, 220);
    Put16(record, 70, static_cast<unsigned>(extra));
    return record;
}

Record BytesOf(std::initializer_list<unsigned> values) {
    Record bytes;
    for (const unsigned value : values)
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

TEST(DumpTrouble, IsNoneWithAGoodRecord) {
    EXPECT_EQ(dump::Trouble(MakeRecord(100)), "");
}

TEST(DumpTrouble, RefusesARecordThatIsTooShort) {
    EXPECT_EQ(dump::Trouble(Record()), "0 bytes are too few for a DEVMODE");
    EXPECT_EQ(dump::Trouble(Record(219)), "219 bytes are too few for a DEVMODE");
}

TEST(DumpTrouble, RefusesSizesThatContradictTheBytes) {
    Record record = MakeRecord(100);
    Put16(record, 70, 101);
    EXPECT_EQ(dump::Trouble(record), "dmSize and dmDriverExtra ask for 321 bytes, but there are 320");
    Put16(record, 70, 99);
    EXPECT_NE(dump::Trouble(record), "");
    Put16(record, 68, 219);
    EXPECT_EQ(dump::Trouble(record), "dmSize is 219 and not 220");
}

TEST(DumpTrouble, RefusesADeviceNameWithoutEnd) {
    Record record = MakeRecord(0);
    for (std::size_t i = 0; i < 32; ++i)
        Put16(record, 2 * i, 'n');
    EXPECT_EQ(dump::Trouble(record), "dmDeviceName has no end");
}

TEST(DumpPublicFields, ShowsValuesAndMarksThoseThatAreUnset) {
    Record record = MakeRecord(0);
    Put16(record, 72, 0x101); // dmOrientation and dmCopies
    Put16(record, 76, 2);
    Put16(record, 86, 0xFFFF);
    Put16(record, 90, 0xFFFC);
    const std::string text = dump::PublicFields(record);
    EXPECT_NE(text.find("dmDeviceName      \"X1\"\n"), std::string::npos) << text;
    EXPECT_NE(text.find("dmFields          0x00000101\n"), std::string::npos);
    EXPECT_NE(text.find("dmOrientation     2\n"), std::string::npos);
    EXPECT_NE(text.find("dmCopies          -1\n"), std::string::npos);
    EXPECT_NE(text.find("dmPrintQuality    -4 (unset)\n"), std::string::npos);
}

TEST(DumpPublicFields, WritesCharactersOfANameThatAreNotPlainAsNumbers) {
    Record record = MakeRecord(0);
    Put16(record, 0, 0x7528);
    Put16(record, 2, '"');
    EXPECT_NE(dump::PublicFields(record).find("dmDeviceName      \"\\u7528\\u0022\"\n"), std::string::npos);
}

TEST(DumpPublicFields, NeedsThePublicPart) {
    EXPECT_EQ(dump::PublicFields(Record(219)), "");
}

TEST(DumpBytes, ShowsOffsetHexAndText) {
    EXPECT_EQ(dump::Bytes(BytesOf({'A', 0, 0x1F, '~', 0x7F, 0xFF})),
              "000000  41 00 1f 7e 7f ff                                A..~..\n");
}

TEST(DumpBytes, LeavesOutLinesOfZerosAndKeepsTheOffsets) {
    Record bytes(48);
    bytes[40] = std::byte{'z'};
    EXPECT_EQ(dump::Bytes(bytes),
              "000020  00 00 00 00 00 00 00 00 7a 00 00 00 00 00 00 00  ........z.......\n");
    EXPECT_EQ(dump::Bytes(Record(64)), "");
    EXPECT_EQ(dump::Bytes({}), "");
}

TEST(DumpBytes, ShowsDoubleByteCharactersWhole) {
    // 0x975C is a character whose second byte is a backslash.
    EXPECT_EQ(dump::Bytes(BytesOf({0x97, 0x5C, 'a'})),
              "000000  97 5c 61                                         \x97\x5C"
              "a\n");
}

TEST(DumpBytes, PutsACharacterThatALineEndDividesOnTheFirstLine) {
    Record bytes(17, std::byte{'a'});
    bytes[15] = std::byte{0x97};
    bytes[16] = std::byte{0x5C};
    EXPECT_EQ(dump::Bytes(bytes),
              "000000  61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 97  aaaaaaaaaaaaaaa\x97\x5C\n"
              "000010  5c                                                \n");
}

TEST(DumpBytes, ShowsALeadByteAtTheEndAsADot) {
    EXPECT_EQ(dump::Bytes(BytesOf({0x97})), "000000  97                                               .\n");
}

// A printer with two features of two options each.
PrinterModel MakeModel() {
    ppd::PpdFile file;
    for (const char* keyword : {"PageSize", "Punch"}) {
        ppd::Feature feature;
        feature.keyword = keyword;
        feature.options = {{"A4", "A4", ""}, {"B5", "B5", ""}};
        file.features.push_back(feature);
    }
    file.papers.resize(2);
    return PrinterModel(file, Language::English);
}

// The line of a feature or setting, values in the column where they all begin.
std::string Line(std::string name, const std::string& value) {
    name.resize(36, ' ');
    return name + value + "\n";
}

TEST(DumpDriverSettings, NamesTheSelectedOptionOfEachFeature) {
    Settings settings;
    settings.selection = {0, 1};
    const std::string text = dump::DriverSettings(settings, MakeModel());
    EXPECT_NE(text.find(Line("scale", "100")), std::string::npos) << text;
    EXPECT_NE(text.find(Line("*PageSize", "0 A4") + Line("*Punch", "1 B5")), std::string::npos) << text;
}

TEST(DumpDriverSettings, ShowsTheFormAsThePageSize) {
    Settings settings;
    settings.selection = {0, 1};
    settings.form = 1;
    EXPECT_NE(dump::DriverSettings(settings, MakeModel()).find(Line("*PageSize", "1 B5")), std::string::npos);
    settings.form = 2;
    EXPECT_NE(dump::DriverSettings(settings, MakeModel()).find(Line("*PageSize", "2")), std::string::npos);
}

TEST(DumpDriverSettings, HasNoKeywordForAnOptionBeyondTheFeature) {
    Settings settings;
    settings.selection = {0, 7};
    EXPECT_NE(dump::DriverSettings(settings, MakeModel()).find(Line("*Punch", "7")), std::string::npos);
}

TEST(DumpPluginHeader, ShowsSizeSignatureAndVersion) {
    EXPECT_EQ(dump::PluginHeader(BytesOf({0x30, 0x5E, 0, 0, 0x54, 0x46, 0x53, 0x4D, 2, 0, 0, 0})),
              "dwSize            24112\ndwSignature       0x4d534654\ndwVersion         2\n");
    EXPECT_EQ(dump::PluginHeader(Record(11)), "");
}

TEST(Dump, SurvivesAnyBytes) {
    std::mt19937 random(7);
    for (int round = 0; round < 500; ++round) {
        Record record(random() % 600);
        for (std::byte& byte : record)
            byte = static_cast<std::byte>(random());
        if (round % 2 == 0 && record.size() >= 220) {
            Put16(record, 68, 220);
            Put16(record, 70, static_cast<unsigned>(record.size() - 220));
        }
        dump::Trouble(record);
        dump::PublicFields(record);
        dump::Bytes(record);
        dump::PluginHeader(record);
    }
}

} // namespace
