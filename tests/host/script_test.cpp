#include "host/script.h"

#include "tests/support/utf8_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using script::Action;
using script::Parse;
using script::Verb;

Action Only(const std::string& text) {
    const script::Script script = Parse(text);
    EXPECT_FALSE(script.error) << script.error->message;
    EXPECT_EQ(script.actions.size(), 1u);
    return script.actions.empty() ? Action{} : script.actions.front();
}

// The error as a user reads it.
std::string ErrorOf(const std::string& text) {
    const script::Script script = Parse(text);
    return script.error ? script::Describe("s.txt", *script.error) : "";
}

TEST(Script, EmptyTextHasNoActions) {
    EXPECT_TRUE(Parse("").actions.empty());
    EXPECT_FALSE(Parse("").error);
}

TEST(Script, SkipsEmptyLinesAndComments) {
    const script::Script script = Parse("\n   \n# choose 1 1\n\t# more\nclick 7 # why\n");
    EXPECT_FALSE(script.error);
    ASSERT_EQ(script.actions.size(), 1u);
    EXPECT_EQ(script.actions[0].line, 5);
    EXPECT_EQ(script.actions[0].control, 7);
}

TEST(Script, TakesWindowsLineEndsAByteOrderMarkAndAMissingLastLineEnd) {
    const script::Script script = Parse("\xEF\xBB\xBF"
                                        "click 1362\r\npress ok");
    EXPECT_FALSE(script.error);
    ASSERT_EQ(script.actions.size(), 2u);
    EXPECT_EQ(script.actions[0].verb, Verb::Click);
    EXPECT_EQ(script.actions[0].control, 1362);
    EXPECT_EQ(script.actions[1].verb, Verb::Press);
    EXPECT_EQ(script.actions[1].control, 1);
}

TEST(Script, ReadsAPageTitleWithAndWithoutQuotes) {
    EXPECT_EQ(Only(Utf8(u8"page 詳細設定")).text, Utf8(u8"詳細設定"));
    EXPECT_EQ(Only(Utf8(u8"page \"詳細 設定\"")).text, Utf8(u8"詳細 設定"));
}

TEST(Script, ChoosesByRowOrByQuotedText) {
    const Action byRow = Only("choose 1363 2");
    EXPECT_EQ(byRow.control, 1363);
    EXPECT_EQ(byRow.row, 2);
    const Action byText = Only("choose 1363 \"2\"");
    EXPECT_FALSE(byText.row);
    EXPECT_EQ(byText.text, "2");
}

TEST(Script, RefusesAnUnquotedTextAsARow) {
    EXPECT_EQ(ErrorOf("choose 1363 fine"), "s.txt:1: \"fine\" is not a row; a text stands in quotes");
}

TEST(Script, NamesTheSheetsButtons) {
    EXPECT_EQ(Only("press ok").control, 1);
    EXPECT_EQ(Only("press cancel").control, 2);
    EXPECT_EQ(Only("press apply").control, 0x3021);
    EXPECT_EQ(Only("expect disabled apply").control, 0x3021);
    EXPECT_EQ(Only("answer yes").control, 6);
    EXPECT_EQ(Only("answer no").control, 7);
}

TEST(Script, ReadsOnAndOff) {
    EXPECT_EQ(Only("check 12 on").number, 1u);
    EXPECT_EQ(Only("check 12 off").number, 0u);
    EXPECT_EQ(ErrorOf("check 12 maybe"), "s.txt:1: \"maybe\" is none of on, off");
}

TEST(Script, ReadsBanksKeywordsAndValues) {
    const Action action = Only("expect bank Favorite 305 4294967295");
    EXPECT_EQ(action.verb, Verb::ExpectBank);
    EXPECT_EQ(action.bank, script::Bank::Favorite);
    EXPECT_EQ(action.keyword, 305);
    EXPECT_EQ(action.number, 4294967295u);
    EXPECT_EQ(ErrorOf("bank current 305"),
              "s.txt:1: \"current\" is none of Current, Default, Favorite, Preview");
}

TEST(Script, ReadsWhatToWriteIntoTheStore) {
    const Action bank = Only("set bank Current 134 2");
    EXPECT_EQ(bank.verb, Verb::SetBank);
    EXPECT_EQ(bank.bank, script::Bank::Current);
    EXPECT_EQ(bank.keyword, 134);
    EXPECT_EQ(bank.number, 2u);
    const Action value = Only("set value LayoutRepeatX 4294967295");
    EXPECT_EQ(value.verb, Verb::SetValue);
    EXPECT_EQ(value.text, "LayoutRepeatX");
    EXPECT_EQ(value.number, 4294967295u);
    EXPECT_NE(ErrorOf("set value LayoutRepeatX many"), "");
    const Action text = Only("set text JobName \"a b\"");
    EXPECT_EQ(text.verb, Verb::SetText);
    EXPECT_EQ(text.text, "JobName");
    EXPECT_EQ(text.wanted, "a b");
    EXPECT_EQ(ErrorOf("set row 1 2"), "s.txt:1: unknown action \"set\"");
}

TEST(Script, NamesKeys) {
    EXPECT_EQ(Only("key enter").verb, Verb::Key);
    EXPECT_EQ(Only("key enter").number, 0x0Du);
    EXPECT_EQ(Only("key escape").number, 0x1Bu);
    EXPECT_EQ(Only("key tab").number, 0x09u);
    EXPECT_EQ(Only("key up").number, 0x26u);
    EXPECT_EQ(Only("key down").number, 0x28u);
    EXPECT_EQ(Only("key space").number, 0x20u);
    EXPECT_EQ(ErrorOf("key a"), "s.txt:1: \"a\" is none of enter, escape, tab, up, down, space");
}

TEST(Script, ReadsWhatIsExpectedOfRows) {
    EXPECT_EQ(Only("expect rows 1300 3").verb, Verb::ExpectRows);
    EXPECT_EQ(Only("expect rows 1300 3").number, 3u);
    const Action item = Only("expect item 4008 2 \"a b\"");
    EXPECT_EQ(item.verb, Verb::ExpectItem);
    EXPECT_EQ(item.control, 4008);
    EXPECT_EQ(item.row, 2);
    EXPECT_EQ(item.wanted, "a b");
}

TEST(Script, ReadsTheFocusAndThePrograms) {
    EXPECT_EQ(Only("expect focus 1226").verb, Verb::ExpectFocus);
    EXPECT_EQ(Only("expect focus 1226").control, 1226);
    EXPECT_EQ(Only("end").verb, Verb::EndProgram);
    const Action running = Only("expect running other.exe 2");
    EXPECT_EQ(running.verb, Verb::ExpectRunning);
    EXPECT_EQ(running.text, "other.exe");
    EXPECT_EQ(running.number, 2u);
}

TEST(Script, ReadsARowOfNone) {
    EXPECT_EQ(Only("expect row 1363 -1").row, -1);
}

TEST(Script, ReadsTheNameAndTheValueExpectedOfIt) {
    const Action action = Only("expect value JobName \"a b\"");
    EXPECT_EQ(action.text, "JobName");
    EXPECT_EQ(action.wanted, "a b");
}

TEST(Script, RefusesANameThatNoOperationCanHave) {
    EXPECT_EQ(ErrorOf("value Job-Name"), "s.txt:1: \"Job-Name\" is not the name of a value");
    EXPECT_EQ(ErrorOf("value \"\""), "s.txt:1: \"\" is not the name of a value");
    EXPECT_NE(ErrorOf("value " + std::string(5000, 'x')), "");
}

TEST(Script, UnderstandsEscapesInQuotesOnly) {
    EXPECT_EQ(Only(R"(print "a\"b\\c\nd")").text, "a\"b\\c\nd");
    EXPECT_EQ(Only(R"(screenshot C:\new\x.png)").text, R"(C:\new\x.png)");
    EXPECT_EQ(ErrorOf(R"(print "a\tb")"), "s.txt:1: unknown escape in a quoted text");
}

TEST(Script, KeepsAHashInQuotesAndInsideAWord) {
    EXPECT_EQ(Only("print \"#1\"").text, "#1");
    EXPECT_EQ(Only("page a#b").text, "a#b");
}

TEST(Script, RefusesOpenQuotesAndQuotesInWords) {
    EXPECT_EQ(ErrorOf("print \"open"), "s.txt:1: no closing quote");
    EXPECT_EQ(ErrorOf("print \"open\\"), "s.txt:1: no closing quote");
    EXPECT_EQ(ErrorOf("print a\"b"), "s.txt:1: quote inside a word");
    EXPECT_EQ(ErrorOf("print \"a\"b"), "s.txt:1: no blank after a closing quote");
}

TEST(Script, TellsTheLineOfTheFirstErrorAndKeepsWhatStandsBefore) {
    const script::Script script = Parse("click 1\n\nclick 2\nclack 3\nclick\n");
    ASSERT_TRUE(script.error);
    EXPECT_EQ(script::Describe("s.txt", *script.error), "s.txt:4: unknown action \"clack\"");
    EXPECT_EQ(script.actions.size(), 2u);
}

TEST(Script, TellsWhatAnActionTakes) {
    EXPECT_EQ(ErrorOf("click"), "s.txt:1: too few words, wanted: click ID");
    EXPECT_EQ(ErrorOf("click 1 2"), "s.txt:1: too many words, wanted: click ID");
    EXPECT_EQ(ErrorOf("reopen now"), "s.txt:1: too many words, wanted: reopen");
    EXPECT_EQ(ErrorOf("expect"), "s.txt:1: expect what?");
    EXPECT_EQ(ErrorOf("expect joy 1"), "s.txt:1: nothing called \"joy\" can be expected");
}

TEST(Script, RefusesNumbersOutOfRange) {
    EXPECT_EQ(ErrorOf("click 0"), "s.txt:1: \"0\" is not a control id");
    EXPECT_EQ(ErrorOf("click 65536"), "s.txt:1: \"65536\" is not a control id");
    EXPECT_EQ(ErrorOf("click 12x"), "s.txt:1: \"12x\" is not a control id");
    EXPECT_EQ(ErrorOf("click \"12\""), "s.txt:1: \"12\" is not a control id");
    EXPECT_NE(ErrorOf("wait 3600001"), "");
    EXPECT_NE(ErrorOf("wait -1"), "");
    EXPECT_NE(ErrorOf("choose 1 99999999999999999999999"), "");
    EXPECT_NE(ErrorOf("bank Current 2147483648"), "");
    EXPECT_NE(ErrorOf("expect bank Current 1 4294967296"), "");
}

TEST(Script, RefusesWhatIsNotUtf8) {
    for (const char* bytes : {"print \"\x8F\xDA\"", "print \xC0\xAF", "print \xED\xA0\x80",
                              "print \xF4\x90\x80\x80", "print \xE3\x81", "print \xFF"})
        EXPECT_EQ(ErrorOf(bytes), "s.txt:1: not UTF-8");
}

TEST(Script, RefusesControlCharactersAndNul) {
    EXPECT_EQ(ErrorOf("print a\x1B"), "s.txt:1: control character");
    EXPECT_EQ(ErrorOf(std::string("click 1\0", 8)), "s.txt:1: control character");
    EXPECT_EQ(ErrorOf("click 1\rclick 2"), "s.txt:1: control character");
}

TEST(Script, RefusesATextThatIsTooLongAsAWhole) {
    EXPECT_EQ(ErrorOf(std::string((1 << 20) + 1, '\n')), "s.txt: longer than a script may be");
    EXPECT_EQ(ErrorOf(std::string(1 << 20, '\n')), "");
}

TEST(Script, SurvivesAnyBytes) {
    std::mt19937 random(1);
    const std::string seeds = "choose 1363 \"\\\"expect bank Current 305 1\n#\xE8\xA9\xB3\xFF\\n\t -1";
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (std::size_t length = random() % 64; length > 0; --length)
            text += seeds[random() % seeds.size()];
        const script::Script script = Parse(text);
        for (const Action& action : script.actions)
            ASSERT_GE(action.line, 1);
        if (script.error) {
            ASSERT_FALSE(script.error->message.empty());
        }
    }
}

TEST(Script, QuotesSoThatTheTextReadsBack) {
    const std::string text = "a \"b\" \\ \n#c";
    EXPECT_EQ(Only("print " + script::Quoted(text)).text, text);
}

TEST(Script, UsageShowsEveryAction) {
    const std::string usage = script::Usage();
    for (const char* action : {"page",           "choose",        "click",          "check",
                               "type",           "press",         "answer",         "screenshot",
                               "wait",           "reopen",        "print",          "bank",
                               "value",          "set bank",      "set value",      "key",
                               "expect row",     "expect rows",   "expect item",    "expect focus",
                               "expect running", "expect text",   "expect enabled", "expect disabled",
                               "expect visible", "expect hidden", "expect bank",    "expect page",
                               "expect message"})
        EXPECT_NE(usage.find("  " + std::string(action)), std::string::npos) << action;
}

} // namespace
