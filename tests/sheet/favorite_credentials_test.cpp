// The three texts by which a user is known to the printer belong to the job and to no favourite: no file that
// the sheet writes for one holds any of them, in whatever encoding.
#include "host/driverhost_text.h"
#include "host/wide.h"
#include "tests/sheet/favorite_files.h"
#include "tests/sheet/text_script.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Texts that stand nowhere else.
constexpr std::pair<const char*, const char*> kCredentials[] = {
    {"AuthJobUserId", "利用者ぞ71a"}, {"AuthJobPassword", "合言葉ぞ82b"}, {"AuthJobAccount", "部門ぞ93c"}};

// Keyword 133 says that the job is authenticated.
std::string GiveCredentials() {
    std::string script = "set bank Current 133 1\n";
    for (const auto& [name, text] : kCredentials)
        script += std::string("set text ") + name + " " + text + "\n";
    return script;
}

std::string ExpectCredentials() {
    std::string script;
    for (const auto& [name, text] : kCredentials)
        script += std::string("expect value ") + name + " " + text + "\n";
    return script;
}

// The text's bytes as they would stand in a file.
std::vector<std::string> Encodings(const std::string& text) {
    const std::string utf8 = driverhost::Utf8OfAnsi(text);
    const std::wstring wide = Wide(utf8);
    std::string swapped;
    for (const wchar_t c : wide) {
        swapped += static_cast<char>(c >> 8);
        swapped += static_cast<char>(c & 0xFF);
    }
    return {text, utf8, std::string(reinterpret_cast<const char*>(wide.data()), 2 * wide.size()), swapped};
}

// The files of the folder and below it.
std::vector<fs::path> FilesBelow(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    return files;
}

void ExpectNoCredential(const std::vector<fs::path>& files) {
    for (const fs::path& file : files) {
        const std::string bytes = ReadText(file);
        EXPECT_NE(bytes, "") << file;
        for (const auto& [name, text] : kCredentials)
            for (const std::string& encoded : Encodings(text))
                EXPECT_EQ(bytes.find(encoded), std::string::npos) << name << " stands in " << file;
    }
}

std::string Save(const std::string& name, const std::string& comment) {
    return "click 1214\ntype 1226 " + name + "\ntype 1227 \"" + comment + "\"\nclick 1\n";
}

class FavoriteCredentials : public testing::Test {
  protected:
    static void TearDownTestSuite() {
        ClearFavorites();
        ClearPrinter();
    }
    void SetUp() override {
        ClearPrinter();
        ClearFavorites();
    }
};

TEST_F(FavoriteCredentials, StandInNoFileHoweverAFavoriteIsSaved) {
    const ExchangeFolder exchange;
    PlayText(GiveCredentials() + Choose(6010, 1) + Save("新規", "一") +     // new
             Choose(6010, 2) + Save("新規", "二") + "answer yes\n" +        // overwritten
             Save("別名", "三") + "click 1398\ntype 1207 改名\nclick 1\n" + // renamed
             "click 1398\ntype 1206 書換\nclick 1\n" +                      // another comment
             "click 1398\nclick 1214\ntype 1148 " + exchange.Word("持出.pfk") +
             "\nclick 1\nclick 4006\ntype 1148 " + exchange.Word("持出.pfk") +
             "\nclick 1\nclick 1\n" + // into a file and back
             ExpectCredentials() + "press ok\n");
    EXPECT_EQ(FavoriteNames().size(), 3u);
    std::vector<fs::path> files = FilesBelow(FavoriteFolder());
    EXPECT_GE(files.size(), 3u);
    files.push_back(exchange.File("持出.pfk"));
    ExpectNoCredential(files);
}

// So does the search itself: what it looks for is found where it stands.
TEST_F(FavoriteCredentials, AreFoundInTheCommentThatHoldsThem) {
    PlayText(Save("名前", kCredentials[0].second) + "press cancel\n");
    const std::string bytes = ReadText(FavoriteFile("名前"));
    EXPECT_NE(bytes.find(Encodings(kCredentials[0].second)[1]), std::string::npos);
}

TEST_F(FavoriteCredentials, AreKeptForTheJobWhenAFavoriteIsPicked) {
    PlayText(Choose(6010, 1) + Save("両面", "") + GiveCredentials() + "choose 1300 0\n" +
             ExpectCredentials() + "choose 1300 \"両面\"\nexpect row 6010 1\n" + ExpectCredentials() +
             "press cancel\n");
}

// A file from elsewhere may hold them; they are not the job's.
TEST_F(FavoriteCredentials, OfAForeignFileDoNotReachTheJob) {
    PlayText(Save("両面", "") + "press cancel\n");
    std::string file = ReadText(FavoriteFile("両面"));
    const std::string foreign =
        "<AuthJobUserId>foreign</AuthJobUserId><AuthJobPassword>foreign</AuthJobPassword>"
        "<AuthJobAccount>foreign</AuthJobAccount>";
    file.insert(file.find("<PrintOption>") + 13, foreign);
    WriteText(FavoriteFile("外来"), file);
    PlayText(GiveCredentials() + "choose 1300 \"外来\"\n" + ExpectCredentials() + "press cancel\n");
}

} // namespace
