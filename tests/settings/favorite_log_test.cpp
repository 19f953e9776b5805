#include "Common/data_directories.h"
#include "Common/log_recorder.h"
#include "Common/platform_files_native.h"
#include "settings/favorite_texts.h"
#include "settings/favorite_writer.h"
#include "tests/settings/fake_document.h"
#include "tests/settings/favorite_fixture.h"
#include "tests/settings/travelling_fields.h"
#include "tests/support/tag_listing.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string_view>

namespace {

using Lines = std::vector<std::string>;

template <class Call>
Lines LinesOf(Call call) {
    const log_backend::Recorder log;
    call();
    return log.main;
}

// What stands behind "file line行目 function".
std::string TextOf(const std::string& line) {
    constexpr std::string_view kMark = "行目 ";
    const std::size_t mark = line.find(kMark);
    EXPECT_NE(mark, std::string::npos) << line;
    return line.substr(line.find(' ', mark + kMark.size()) + 1);
}

Lines TextsOf(const Lines& lines) {
    Lines texts;
    for (const std::string& line : lines)
        texts.push_back(TextOf(line));
    return texts;
}

// A document whose texts are there as often as a test wants them to be.
class FailingFavorite : public FavoriteDocument {
  public:
    explicit FailingFavorite(int answers)
        : FavoriteDocument(std::make_shared<const FavoriteTexts>(XmlElements())), m_answers(answers) {}
    std::shared_ptr<const FavoriteTexts> Texts() override {
        return m_answers-- > 0 ? FavoriteDocument::Texts() : nullptr;
    }

  private:
    int m_answers;
};

using FavoriteLogTest = FavoriteTest;

// The lines of every step of the header, two steps for each instruction, comment, element and text.
std::vector<Lines> HeaderFailures() {
    std::vector<Lines> failures;
    int appended = 0;
    const auto add = [&](const std::string& made, const char* value = nullptr) {
        Lines tail;
        if (value)
            tail.push_back("not written: " + std::string(value) + "\n");
        for (const std::string& first :
             {made + "\n", "新しい子ノード追加エラー" + std::to_string(++appended) + "\n"}) {
            failures.push_back({first});
            failures.back().insert(failures.back().end(), tail.begin(), tail.end());
        }
    };
    add("処理命令ノード作成エラー1");
    add("コメントノード作成エラー1");
    add("Elementノード(要素)生成エラー1");
    const std::array values{"FileVer", "IotVer", "CharCode", "Comment", "PageSize"};
    for (std::size_t child = 0; child < values.size(); ++child) {
        add("コメントノード作成エラー" + std::to_string(child + 2), values[child]);
        add("Elementノード(要素)生成エラー" + std::to_string(child + 2), values[child]);
        add("テキストノード作成エラー" + std::to_string(child + 1), values[child]);
    }
    add("コメントノード作成エラー7");
    return failures;
}

// The long names of what is written, in the order of the listing.
Lines WrittenNames() {
    Lines names;
    for (const ListedTag& tag : ListedTags())
        if (!IsAuthentication(tag.key))
            names.push_back(tag.longName);
    return names;
}

// PrintOption itself, and then of each name a comment, an element and a text.
Lines OptionFailure(int step, const Lines& names) {
    constexpr int kStepsOfRoot = 2;
    constexpr int kStepsOfValue = 6;
    const std::array<const char*, 3> made{"createCommentエラー\n", "createElementエラー\n",
                                          "createTextNodeエラー\n"};
    const auto message = [&](std::size_t kind) { return step % 2 == 0 ? "appendChildエラー\n" : made[kind]; };
    if (step <= kStepsOfRoot)
        return {message(1)};
    const auto index = static_cast<std::size_t>(step - kStepsOfRoot - 1);
    return {message(index % kStepsOfValue / 2), "not written: " + names[index / kStepsOfValue] + "\n"};
}

// The function and the line that a log line names.
std::string FunctionOf(const std::string& line) {
    constexpr std::string_view kMark = "行目 ";
    const std::size_t begin = line.find(kMark) + kMark.size();
    return line.substr(begin, line.find(' ', begin) - begin);
}
std::string NumberOf(const std::string& line) {
    const std::size_t begin = line.find(' ') + 1;
    return line.substr(begin, line.find("行目 ") - begin);
}

} // namespace

TEST_F(FavoriteLogTest, EveryStepOfTheHeaderThatFailsLogsItsOwnPlace) {
    const std::vector<Lines> failures = HeaderFailures();
    ASSERT_EQ(failures.size(), 38u);
    for (std::size_t step = 1; step <= failures.size(); ++step) {
        FakeDocument failing;
        failing.failingStep = static_cast<int>(step);
        EXPECT_EQ(TextsOf(LinesOf([&] { EXPECT_FALSE(WriteFavoriteDocument(setting, failing)); })),
                  failures[step - 1]);
    }
}

TEST_F(FavoriteLogTest, EveryStepOfPrintOptionThatFailsLogsItsKind) {
    constexpr int kSteps = 2 * (1 + 860 * 3);
    const Lines names = WrittenNames();
    ASSERT_EQ(names.size(), 860u);
    for (int step = 1; step <= kSteps; ++step) {
        FakeDocument failing;
        failing.failingStep = 38 + step;
        ASSERT_EQ(TextsOf(LinesOf([&] { EXPECT_FALSE(WriteFavoriteDocument(setting, failing)); })),
                  OptionFailure(step, names))
            << step;
    }
}

TEST_F(FavoriteLogTest, AStepThatFailsNamesTheFunctionThatWantedItAndItsLine) {
    std::map<std::string, std::set<std::string>> numbers;
    for (int step = 1; step <= 38 + 8; ++step) {
        FakeDocument failing;
        failing.failingStep = step;
        const Lines lines = LinesOf([&] { EXPECT_FALSE(WriteFavoriteDocument(setting, failing)); });
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(FunctionOf(lines[0]), step <= 38 ? "WriteFavoriteDocument" : "WriteXmlPrintOption") << step;
        EXPECT_NE(lines[0].find("favorite_writer.cpp "), std::string::npos) << lines[0];
        numbers[FunctionOf(lines[0])].insert(NumberOf(lines[0]));
    }
    EXPECT_EQ(numbers["WriteFavoriteDocument"].size(), 5u)
        << "the instruction, the comment, the root, a value and the last comment";
    EXPECT_EQ(numbers["WriteXmlPrintOption"].size(), 2u) << "the element and a value";
}

TEST_F(FavoriteLogTest, AFileThatIsNoXmlIsNamed) {
    const std::string path = Write("bad.pfk", "no XML at all");
    const Lines lines = LinesOf([&] { EXPECT_EQ(manager.LoadFavoriteFromPath(setting, path.c_str()), -1); });
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_TRUE(lines[1].ends_with("行目 ReadFile ファイル読み込みエラー\n")) << lines[1];
    EXPECT_EQ(TextOf(lines[2]), "not read: " + path + "\n");
}

TEST_F(FavoriteLogTest, AFileThatCantBeOpenedIsNamed) {
    const std::string path = PathOf("none.pfk");
    const Lines lines = LinesOf([&] { EXPECT_EQ(manager.LoadFavoriteFromPath(setting, path.c_str()), 0); });
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(TextOf(lines[1]), "not opened: " + path + "\n");
}

TEST_F(FavoriteLogTest, AListingNamesTheFileThatIsBad) {
    platform_files::Folders() = {true, folder.string(), "", ""};
    ASSERT_EQ(CreateFavoriteDirectory(), 1);
    PathBuffer directory{};
    GetFavoriteDirectory(directory.data(), directory.size());
    const std::string prefix = directory.data() + std::string("\\");
    for (const char* name : {"a.pfk", "bad.pfk", "c.pfk"})
        std::ofstream(platform_files::NativePath(prefix + name))
            << (name == std::string("bad.pfk") ? "no XML" : FileOf({{"IotVer", "10"}}));
    std::vector<std::string> names;
    const Lines texts = TextsOf(LinesOf([&] { EXPECT_EQ(manager.GetFindFavoriteFileList(names), 1); }));
    EXPECT_EQ(names, (std::vector<std::string>{"a", "c"}));
    EXPECT_EQ(std::ranges::count(texts, "ファイル読み込みエラー\n"), 1);
    EXPECT_EQ(std::ranges::count(texts, "not read: " + prefix + "bad.pfk\n"), 1);
    platform_files::Folders() = {};
}

TEST_F(FavoriteLogTest, NoDocumentIsTold) {
    const Lines lines = LinesOf([&] { manager.ParseXmlData(nullptr, setting); });
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(lines[0].ends_with("行目 ParseXmlData() XMLデータが無い\n")) << lines[0];
}

TEST_F(FavoriteLogTest, EachElementOfTheHeaderThatCantBeHadLogsItsOwnMessage) {
    const std::array<const char*, 5> messages{"ファイルバージョン取得失敗\n", "IOTバージョン取得失敗\n",
                                              "文字コード取得失敗\n", "コメント取得失敗\n",
                                              "原稿サイズ取得失敗\n"};
    for (std::size_t had = 0; had < messages.size(); ++had) {
        FailingFavorite favorite(static_cast<int>(had));
        EXPECT_EQ(TextsOf(LinesOf([&] { EXPECT_EQ(manager.ParseXmlData(&favorite, setting), 0); })),
                  (Lines{"get_length Error\n", messages[had]}));
    }
}

// What the options' elements hold is not asked for twice: without texts every value is empty.
TEST_F(FavoriteLogTest, OptionsThatCantBeHadAreEmptyAndNoFailure) {
    Store("OCrN", "4");
    FailingFavorite favorite(5);
    EXPECT_EQ(LinesOf([&] { EXPECT_EQ(manager.ParseXmlData(&favorite, setting), 1); }), Lines{});
    EXPECT_EQ(Value("OCrN"), "0");
}

TEST_F(FavoriteLogTest, AValueThatCantBeHadIsTold) {
    std::array<char, 100> line{};
    const Lines lines = LinesOf([&] { CFavoriteFileManager({""}).GetPrintOptionBuf(setting, line); });
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(lines[0].ends_with("行目 GetPrintOptionBuf() お気に入りの値書き出しエラー\n")) << lines[0];
}

TEST_F(FavoriteLogTest, AnOptionLineLogsNothing) {
    std::array<char, 100> line{};
    EXPECT_EQ(LinesOf([&] {
                  CFavoriteFileManager({"ONOC", "OTra"}).GetPrintOptionBuf(setting, line);
              }),
              Lines{});
}

TEST_F(FavoriteLogTest, ASaveThatFailsNamesItsFile) {
    const std::string path = PathOf("none/a.pfk");
    const Lines lines = LinesOf([&] { manager.SaveFavoriteFromPath(setting, path.c_str()); });
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(TextOf(lines[1]), "not saved: " + path + "\n");
}
