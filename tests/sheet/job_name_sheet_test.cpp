// The job's name on the sheet of the real driver: the button 1216, the text 1225 beside it, and the dialog
// with the choices 1221 (automatic) and 1222 (entered) and the field 1224.
#include "tests/sheet/text_script.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class JobNameSheet : public testing::Test {
  protected:
    static void TearDownTestSuite() { ClearPrinter(); }
    void SetUp() override { ClearPrinter(); }
};

TEST_F(JobNameSheet, IsFormedAutomaticallyAtFirst) {
    PlayText("expect text 1225 自動取得\nclick 1216\nexpect checked 1221 on\nexpect checked 1222 off\n"
             "expect disabled 1224\nclick 1\nexpect text 1225 自動取得\npress cancel\n");
}

TEST_F(JobNameSheet, KeepsAFullWidthNameForTheNextProcess) {
    const std::string name = "第１回　表紙＼ソート試験";
    PlayText("click 1216\ncheck 1222 on\nexpect enabled 1224\ntype 1224 \"" + name +
             "\"\nkey enter\nexpect text 1225 \"" + name + "\"\nexpect value JobName \"" + name +
             "\"\nexpect value SpecificJobName 1\npress ok\n");
    PlayText("expect text 1225 \"" + name + "\"\nexpect value JobName \"" + name +
             "\"\nclick 1216\nexpect checked 1222 on\nexpect text 1224 \"" + name +
             "\"\nclick 2\npress cancel\n");
}

TEST_F(JobNameSheet, GoesBackToTheAutomaticName) {
    PlayText("click 1216\ncheck 1222 on\ntype 1224 名前\nclick 1\npress ok\n");
    PlayText("expect text 1225 名前\nclick 1216\ncheck 1221 on\nexpect disabled 1224\nclick 1\n"
             "expect text 1225 自動取得\npress ok\n");
    PlayText("expect text 1225 自動取得\npress cancel\n");
}

TEST_F(JobNameSheet, ForgetsANameThatIsCancelled) {
    PlayText("click 1216\ncheck 1222 on\ntype 1224 名前\nkey escape\nexpect text 1225 自動取得\n"
             "expect value SpecificJobName 0\npress cancel\n");
}

TEST_F(JobNameSheet, RefusesAnEmptyName) {
    PlayText("click 1216\ncheck 1222 on\nclick 1\nexpect message ジョブ名が入力されていません。\nanswer ok\n"
             "type 1224 名前\nclick 1\nexpect text 1225 名前\npress cancel\n");
}

// 255 characters, since the end mark counts as one of the 256.
TEST_F(JobNameSheet, LetsNoMoreThanTheLongestNameBeTyped) {
    const std::string longest(255, 'a');
    PlayText("click 1216\ncheck 1222 on\ntype 1224 " + longest + "b\nexpect text 1224 " + longest +
             "\nclick 1\nexpect value JobName " + longest + "\npress cancel\n");
}

} // namespace
