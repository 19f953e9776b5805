#include "tests/companions/common/dialog_look.h"

#include "tests/pages/dialog_windows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

#include <commctrl.h>

namespace {

bool Meet(const RECT& a, const RECT& b) {
    RECT common{};
    return IntersectRect(&common, &a, &b);
}

bool Holds(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

int RoomBesideText(HWND control) {
    constexpr int kMark = 16;
    constexpr int kFrame = 12;
    if (IsButtonWithMark(control))
        return kMark;
    return IsOfClass(control, WC_BUTTONA) ? kFrame : 0;
}

void ExpectRoomForTexts(const std::vector<HWND>& controls) {
    for (const HWND control : controls) {
        if (!IsOfClass(control, WC_BUTTONA) && !IsOfClass(control, WC_STATICA))
            continue;
        RECT client{};
        GetClientRect(control, &client);
        const SIZE text = SizeOfText(control, TextOf(control));
        EXPECT_LE(text.cx + RoomBesideText(control), client.right) << NameOf(control) << TextOf(control);
        EXPECT_LE(text.cy, client.bottom) << NameOf(control) << TextOf(control);
    }
}

void ExpectOwnPlaces(HWND dialog, const std::vector<HWND>& controls) {
    RECT client{};
    GetClientRect(dialog, &client);
    for (const HWND first : controls) {
        const RECT place = PlaceOf(first);
        EXPECT_TRUE(Holds(client, place)) << NameOf(first);
        for (const HWND second : controls) {
            if (first == second || !Meet(place, PlaceOf(second)))
                continue;
            EXPECT_TRUE((IsGroupBox(first) && Holds(place, PlaceOf(second))) ||
                        (IsGroupBox(second) && Holds(PlaceOf(second), place)))
                << NameOf(first) << ", " << NameOf(second);
        }
    }
}

void ExpectAcceleratorsOnce(const std::vector<HWND>& controls) {
    std::map<char, int> users;
    for (const HWND control : controls) {
        if (const char letter = AcceleratorOf(TextOf(control)))
            ++users[letter];
    }
    EXPECT_FALSE(users.empty());
    for (const auto& [letter, count] : users)
        EXPECT_EQ(count, 1) << letter;
}

void ExpectInTheMiddle(HWND dialog) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoA(MonitorFromWindow(dialog, MONITOR_DEFAULTTOPRIMARY), &screen);
    RECT around = screen.rcWork;
    if (const HWND owner = GetWindow(dialog, GW_OWNER))
        GetWindowRect(owner, &around);
    RECT own{};
    GetWindowRect(dialog, &own);
    EXPECT_TRUE(Holds(screen.rcWork, own));
    EXPECT_LE(std::labs(around.left + around.right - own.left - own.right), 2);
    EXPECT_LE(std::labs(around.top + around.bottom - own.top - own.bottom), 2);
}

} // namespace

void ExpectGoodLook(HWND dialog) {
    const std::vector<HWND> controls = ControlsOf(dialog);
    ExpectRoomForTexts(controls);
    ExpectOwnPlaces(dialog, controls);
    ExpectAcceleratorsOnce(controls);
    ExpectInTheMiddle(dialog);
    const LRESULT button = SendMessageA(dialog, DM_GETDEFID, 0, 0);
    EXPECT_EQ(HIWORD(button), DC_HASDEFID);
    EXPECT_EQ(LOWORD(button), IDOK);
    // Message boxes are told from other dialogs by this id.
    EXPECT_EQ(GetDlgItem(dialog, 0xFFFF), nullptr);
}

std::vector<int> TabOrder(HWND dialog) {
    std::vector<int> order;
    const HWND first = GetFocus();
    HWND control = first;
    do {
        order.push_back(GetDlgCtrlID(control));
        control = GetNextDlgTabItem(dialog, control, FALSE);
    } while (control && control != first && order.size() < 100);
    return order;
}
