// Rows of the standard page that the device cannot do.
#include "tests/pages/standard_page_driver.h"

namespace {

using namespace keyword;
using Calls = std::vector<std::string>;

constexpr char kPreview[] = "UpdatePreview";
constexpr char kMark[] = "UpdateChangeItemPresetCombo";
constexpr char kGate[] = "IsSelectableOption";

struct Gated {
    int controlId;
    Settings current; // shown in row `row`
    int row;
    const char* apply;
};

const std::vector<Gated> kGated{
    {1155, {{Punch, 2}, {PunchHoles, 2}}, 7, "ApplyPunch"},
    {1156, {{Fold, 2}}, 2, "ApplyFold"},
    {1273, {{StapleMode, 3}}, 3, "ApplyStaple"},
    {1277, {{OutputTray, 2}}, 2, "ApplyOutputTray"},
    {1281, {{Tray, 2}}, 2, "ApplySource"},
};

class GatedControl : public LoggedStandardPage, public testing::WithParamInterface<Gated> {
  protected:
    void Mark(int row) {
        SendMessageA(Control(GetParam().controlId), CB_SETITEMDATA, static_cast<WPARAM>(row), 1);
    }
};

INSTANTIATE_TEST_SUITE_P(StandardPage, GatedControl, testing::ValuesIn(kGated),
                         [](const auto& test) { return std::string(test.param.apply).substr(5); });

TEST_P(GatedControl, TurnsARefusedRowBackAndRepeatsTheChange) {
    const Gated& gated = GetParam();
    OpenWith(gated.current);
    Mark(1);
    const CurrentBank before = WholeBank();
    ForgetCalls();
    EXPECT_EQ(Choose(gated.controlId, 1), 1);
    EXPECT_EQ(Row(gated.controlId), gated.row);
    EXPECT_EQ(WholeBank(), before);
    EXPECT_EQ(CallsAmong({kGate, gated.apply, kPreview, kMark}), Calls{kGate});
    EXPECT_EQ(ChangesSeen(), 1);
    EXPECT_EQ(TakePosted(), (std::vector<Posted>{{gated.controlId, 1, Control(gated.controlId)}}));

    // What was posted, as it comes.
    ForgetCalls();
    EXPECT_EQ(Send(gated.controlId, 1), 1);
    const Calls calls = CallsAmong({kGate, gated.apply, kMark});
    EXPECT_EQ(calls, (Calls{kGate, gated.apply, kMark}));
    EXPECT_EQ(Row(gated.controlId), gated.row);
    EXPECT_EQ(WholeBank(), before);
    EXPECT_TRUE(TakePosted().empty());
}

TEST_P(GatedControl, DoesNotRepeatForEverIfTheCurrentRowIsRefusedToo) {
    const Gated& gated = GetParam();
    OpenWith(gated.current);
    Mark(1);
    Mark(gated.row);
    const CurrentBank before = WholeBank();
    EXPECT_EQ(Choose(gated.controlId, 1), 1);
    EXPECT_EQ(Row(gated.controlId), gated.row);
    EXPECT_EQ(WholeBank(), before);
    EXPECT_TRUE(TakePosted().empty());
    EXPECT_EQ(Choose(gated.controlId, gated.row), 1);
    EXPECT_TRUE(TakePosted().empty());
    EXPECT_EQ(WholeBank(), before);
}

TEST_P(GatedControl, LeavesAValueWithoutARowAlone) {
    const Gated& gated = GetParam();
    Settings current = gated.current;
    current[0].value = 40000;
    OpenWith(current);
    Mark(1);
    EXPECT_EQ(Choose(gated.controlId, 1), 1);
    EXPECT_EQ(Row(gated.controlId), -1);
    for (const Posted& posted : TakePosted())
        Send(posted.controlId, posted.notifyCode);
    EXPECT_EQ(ValuesOf(current), Text(current));
    EXPECT_TRUE(TakePosted().empty());
}

TEST_P(GatedControl, TakesARowThatTheDeviceCanDo) {
    const Gated& gated = GetParam();
    OpenWith();
    Mark(2);
    EXPECT_EQ(Choose(gated.controlId, 1), 1);
    EXPECT_EQ(Row(gated.controlId), 1);
    EXPECT_EQ(Current(gated.current[0].keyword), 1u);
    EXPECT_TRUE(TakePosted().empty());
}

using RefusedRow = StandardPageDriver;

// Holes without a row of their own do not make the values another row's.
TEST_F(RefusedRow, OfPunchKeepsHolesWithoutARow) {
    OpenWith({{Punch, 2}, {PunchHoles, 9}});
    SendMessageA(Control(1155), CB_SETITEMDATA, 1, 1);
    Choose(1155, 1);
    for (const Posted& posted : TakePosted())
        Send(posted.controlId, posted.notifyCode);
    const Settings same{{Punch, 2}, {PunchHoles, 9}};
    EXPECT_EQ(ValuesOf(same), Text(same));
}

TEST_F(RefusedRow, IsNoneOfAControlWithoutAGate) {
    OpenWith();
    SendMessageA(Control(6010), CB_SETITEMDATA, 1, 1);
    EXPECT_EQ(Choose(6010, 1), 1);
    EXPECT_EQ(Current(DuplexMode), 1u);
}

} // namespace
